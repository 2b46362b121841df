// SPDX-License-Identifier: MIT
#include "LaunchOptionTable.h"

#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <QCoreApplication>

#include <iterator>

namespace {

/// The table and its texts, which are translated when they are shown.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LaunchOptionTable)

public:
    static constexpr const char* solver = QT_TR_NOOP("Kest Solver");
    static constexpr const char* preProcessor = QT_TR_NOOP("Pre-processor");
    static constexpr const char* utilities = QT_TR_NOOP("Utilities");
    static constexpr const char* amr = QT_TR_NOOP("AMR");
    static constexpr const char* environment = QT_TR_NOOP("Environment");
    static constexpr const char* freeText =
        QT_TR_NOOP("Passed on to the component, split at blanks. Quotes have no meaning.");

    // clang-format off
    static constexpr LaunchOptionRow rows[] = {
        // key, tab, group, label, unit, switch, accessible name, hint
        {"RunParallel",                          solver,       QT_TR_NOOP("Run"),                 QT_TR_NOOP("&parallel"),                               "",           "",                                 "",                                                          QT_TR_NOOP("Run on several processors or machines at once, as the machines file says.")},
        {"RunRemote",                            solver,       QT_TR_NOOP("Run"),                 QT_TR_NOOP("&remote"),                                 "",           "",                                 "",                                                          QT_TR_NOOP("Run on the remote host that is named below.")},
        {"RunDetailsShown",                      solver,       QT_TR_NOOP("Run"),                 QT_TR_NOOP("d&ialog"),                                 "",           "",                                 "",                                                          QT_TR_NOOP("The window of a run opens with its output and messages unfolded.")},
        {"Kest.ProcessPriority",                 solver,       QT_TR_NOOP("Solver"),              QT_TR_NOOP("priorit&y"),                               "",           "",                                 "",                                                          QT_TR_NOOP("How the solver shares the processor with other programs.")},
        {"Kest.CheckGeometryOnly",               solver,       QT_TR_NOOP("Solver"),              QT_TR_NOOP("Check the &geometry only"),                "",           "",                                 "",                                                          QT_TR_NOOP("The solver looks at the model and ends without solving it.")},
        {"Kest.ExportSPICEMTLCircuitFiles",      solver,       QT_TR_NOOP("Solver"),              QT_TR_NOOP("Export &SPICE MTL circuit files"),         "",           "",                                 "",                                                          QT_TR_NOOP("The solver writes circuit files of multiconductor transmission lines.")},
        {"Kest.AdvancedOptions",                 solver,       QT_TR_NOOP("Solver"),              QT_TR_NOOP("Ad&vanced options"),                       "",           "",                                 QT_TR_NOOP("Advanced options of the solver"),                            freeText},
        {"Kest.SpecifyParallelProcesses",        solver,       QT_TR_NOOP("Parallel runs"),       QT_TR_NOOP("Specify the &number of processes"),        "",           "",                                 QT_TR_NOOP("Specify the number of parallel processes"),                  QT_TR_NOOP("Without it, all the processes of the machines file are used.")},
        {"Kest.NumberOfParallelProcesses",       solver,       QT_TR_NOOP("Parallel runs"),       QT_TR_NOOP("Number &of processes"),                    QT_TR_NOOP("processes"),  "Kest.SpecifyParallelProcesses",    QT_TR_NOOP("Number of parallel processes"),                              QT_TR_NOOP("How many of the processes of the machines file are used: 1 to 4096.")},
        {"Kest.UseSharedMemory",                 solver,       QT_TR_NOOP("Parallel runs"),       QT_TR_NOOP("&Use shared memory"),                      "",           "",                                 "",                                                          QT_TR_NOOP("Processes on one machine share their memory.")},
        {"Kest.ParallelEnvOptions",              solver,       QT_TR_NOOP("Parallel runs"),       QT_TR_NOOP("&MPI statistics"),                         QT_TR_NOOP("level"),      "",                                 QT_TR_NOOP("Level of MPI statistics"),                                   QT_TR_NOOP("Told to the solver in the environment variable KEST_MPISTATISTICS; 0 is none.")},
        {"Kest.ParallelAuthenticMethod",         solver,       QT_TR_NOOP("Parallel runs"),       QT_TR_NOOP("Au&thentication method"),                  "",           "",                                 "",                                                          QT_TR_NOOP("How the machines of a parallel run know that it is you.")},
        {"Kest.RemoteHost",                      solver,       QT_TR_NOOP("Remote runs"),         QT_TR_NOOP("Remote &host"),                            "",           "",                                 "",                                                          QT_TR_NOOP("The name or address of the machine, such as node1 or me@node1 port=2222.")},
        {"Kest.RemoteExecutionMethod",           solver,       QT_TR_NOOP("Remote runs"),         QT_TR_NOOP("&Execution method"),                       "",           "",                                 QT_TR_NOOP("Remote execution method"),                                   QT_TR_NOOP("How the solver is started on the remote machine.")},
        {"Kest.UseGPUforNVIDIA",                 solver,       QT_TR_NOOP("Graphics processors"), QT_TR_NOOP("Use NVIDIA graphi&cs processors (GPUs)"),  "",           "",                                 QT_TR_NOOP("Use NVIDIA graphics processors"),                            QT_TR_NOOP("The solver computes on graphics processors where it can.")},
        {"Kest.NumberOfGPUs",                    solver,       QT_TR_NOOP("Graphics processors"), QT_TR_NOOP("Num&ber of GPUs"),                         QT_TR_NOOP("GPUs"),       "Kest.UseGPUforNVIDIA",             QT_TR_NOOP("Number of graphics processors"),                             QT_TR_NOOP("A number such as 2; empty for all.")},
        {"Kest.GPUsList",                        solver,       QT_TR_NOOP("Graphics processors"), QT_TR_NOOP("&List of GPUs"),                           "",           "Kest.UseGPUforNVIDIA",             QT_TR_NOOP("List of graphics processors"),                               QT_TR_NOOP("Numbers with commas between them, such as 0,1; empty for any.")},
        {"Kest.DisableGPUNote",                  solver,       QT_TR_NOOP("Graphics processors"), QT_TR_NOOP("S&kip the GPU option while GPUs are off"), "",           "",                                 QT_TR_NOOP("Skip the option of graphics processors while they are off"), QT_TR_NOOP("While GPUs are off the solver is told \"--use-gpu 0\"; with this it is told nothing.")},

        {"Prekest.ContinueWithErrors",           preProcessor, QT_TR_NOOP("Checks"),              QT_TR_NOOP("&Continue with errors"),                   "",           "",                                 "",                                                          QT_TR_NOOP("Errors in the model do not end the pre-processor.")},
        {"Prekest.ExportVariablesToStdOut",      preProcessor, QT_TR_NOOP("Variables"),           QT_TR_NOOP("&Print variables"),                        "",           "",                                 "",                                                          QT_TR_NOOP("The model's variables are shown among the output of a run.")},
        {"Prekest.ExportVariablesToOutFile",     preProcessor, QT_TR_NOOP("Variables"),           QT_TR_NOOP("Print variables to the &output file"),     "",           "",                                 "",                                                          QT_TR_NOOP("The model's variables are written to the output file.")},
        {"Prekest.AdvancedOptions",              preProcessor, QT_TR_NOOP("Advanced"),            QT_TR_NOOP("Ad&vanced options"),                       "",           "",                                 QT_TR_NOOP("Advanced options of the pre-processor"),                     freeText},

        {"Adaptkest.RestartAnalysisNumber",      utilities,    QT_TR_NOOP("ADAPTKEST"),           QT_TR_NOOP("&Restart from an analysis"),               "",           "",                                 QT_TR_NOOP("Restart ADAPTKEST from an analysis"),                        QT_TR_NOOP("Go on with a sampling that was interrupted.")},
        {"Adaptkest.AnalysisNumber",             utilities,    QT_TR_NOOP("ADAPTKEST"),           QT_TR_NOOP("Analysis &number"),                        "",           "Adaptkest.RestartAnalysisNumber",  QT_TR_NOOP("Number of the analysis to restart from"),                    QT_TR_NOOP("The first analysis to be done again: 1 or more.")},
        {"Adaptkest.DeleteTempFiles",            utilities,    QT_TR_NOOP("ADAPTKEST"),           QT_TR_NOOP("Delete &temporary files"),                 "",           "",                                 QT_TR_NOOP("Delete temporary files of ADAPTKEST"),                       QT_TR_NOOP("Files of single analyses are removed at the end.")},
        {"FarmOut",                              utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("&farming"),                                "",           "",                                 "",                                                          QT_TR_NOOP("OPTKEST runs several solvers at once, on the machines of the machines file.")},
        {"Optkest.SpecifyNumberOfFarmProcesses", utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("Specify the number of farm processes"),    "",           "",                                 "",                                                          QT_TR_NOOP("Always on: OPTKEST needs the number.")},
        {"Optkest.NumberOfFarmProcesses",        utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("Number of farm &processes"),               QT_TR_NOOP("processes"),  "",                                 "",                                                          QT_TR_NOOP("How many solvers run at once when they are farmed out: 2 to 4096.")},
        {"Optkest.RestartFromSolverRun",         utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("R&estart from a solver run"),              "",           "",                                 QT_TR_NOOP("Restart OPTKEST from a solver run"),                         QT_TR_NOOP("Go on with an optimisation that was interrupted.")},
        {"Optkest.SolverRun",                    utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("Solver r&un"),                             "",           "Optkest.RestartFromSolverRun",     QT_TR_NOOP("Number of the solver run to restart from"),                  QT_TR_NOOP("The first solver run to be done again: 1 or more.")},
        {"Optkest.DeleteAllFiles",               utilities,    QT_TR_NOOP("OPTKEST"),             QT_TR_NOOP("De&lete all files"),                       "",           "",                                 QT_TR_NOOP("Delete all files of OPTKEST"),                               QT_TR_NOOP("Files of single solver runs are removed, except for the best.")},
        {"Timekest.DeleteTempFiles",             utilities,    QT_TR_NOOP("TIMEKEST"),            QT_TR_NOOP("Delete temporary files"),                  "",           "",                                 QT_TR_NOOP("Delete temporary files of TIMEKEST"),                        QT_TR_NOOP("Not in use: no component of this suite reads it, and it is not kept.")},

        {"Amrkest.ErrorThreshold",               amr,          QT_TR_NOOP("Refinement"),          QT_TR_NOOP("&Error threshold"),                        "",           "",                                 "",                                                          QT_TR_NOOP("How fine the model becomes.")},
        {"Amrkest.SpecifyMaximumIterations",     amr,          QT_TR_NOOP("Refinement"),          QT_TR_NOOP("&Limit the number of iterations"),         "",           "",                                 "",                                                          QT_TR_NOOP("Without it, AMRKEST refines until the error is small enough.")},
        {"Amrkest.MaximumIterations",            amr,          QT_TR_NOOP("Refinement"),          QT_TR_NOOP("Maximum &iterations"),                     QT_TR_NOOP("iterations"), "Amrkest.SpecifyMaximumIterations", QT_TR_NOOP("Maximum number of iterations"),                              QT_TR_NOOP("AMRKEST ends after so many: 1 or more.")},
        {"Amrkest.SpecifyFrequency",             amr,          QT_TR_NOOP("Refinement"),          QT_TR_NOOP("&Specify the frequency"),                  "",           "",                                 "",                                                          QT_TR_NOOP("Without it, AMRKEST chooses one of the model's frequencies.")},
        {"Amrkest.Frequency",                    amr,          QT_TR_NOOP("Refinement"),          QT_TR_NOOP("&Frequency"),                              QT_TR_NOOP("MHz"),        "Amrkest.SpecifyFrequency",         QT_TR_NOOP("Frequency in megahertz"),                                    QT_TR_NOOP("The frequency that the model is refined for, such as 14.2 or 1e3.")},
        {"Amrkest.DeleteTempFiles",              amr,          QT_TR_NOOP("Files"),               QT_TR_NOOP("Delete &temporary files"),                 "",           "",                                 QT_TR_NOOP("Delete temporary files of AMRKEST"),                         QT_TR_NOOP("Files of single iterations are removed at the end.")},
        {"Amrkest.SkipFinalSolve",               amr,          QT_TR_NOOP("Files"),               QT_TR_NOOP("S&kip the final solve"),                   "",           "",                                 "",                                                          QT_TR_NOOP("The refined model is written and not solved.")},
        {"Amrkest.AdvancedOptions",              amr,          QT_TR_NOOP("Advanced"),            QT_TR_NOOP("Ad&vanced options"),                       "",           "",                                 QT_TR_NOOP("Advanced options of AMRKEST"),                               freeText},

        {"EnvironmentVariables",                 environment,  QT_TR_NOOP("Environment"),         QT_TR_NOOP("Environment &variables"),                  "",           "",                                 "",                                                          QT_TR_NOOP("Set for the solver's process: NAME=VALUE, one a line, without a further \"=\".")},
    };
    // clang-format on
};

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

} // namespace

QString LaunchOptionRow::text() const
{
    const QString own = QString::fromLatin1(label);
    QString translated = Texts::tr(label);
    if (translated != own) {
        return translated;
    }
    const QString registered = metaData().label();
    return registered.contains(plain(own)) ? QString(registered).replace(plain(own), own) : own;
}

QString LaunchOptionRow::unitText() const
{
    return *unit == '\0' ? QString() : Texts::tr(unit);
}

QString LaunchOptionRow::hintText() const
{
    return Texts::tr(hint);
}

QString LaunchOptionRow::plainText() const
{
    return plain(text());
}

QString LaunchOptionRow::spokenName() const
{
    const bool isTranslated = Texts::tr(label) != QString::fromLatin1(label);
    const QString registered = isTranslated ? QString() : metaData().label();
    const QString own = *accessibleName == '\0' ? QString() : Texts::tr(accessibleName);
    return !own.isEmpty() ? own : !registered.isEmpty() ? registered : plainText();
}

const common_PropertyMetaData& LaunchOptionRow::metaData() const
{
    return common_PropertyFactory::getMetaData(QString::fromLatin1(key));
}

const QVector<LaunchOptionRow>& LaunchOptionTable::rows()
{
    static const QVector<LaunchOptionRow> table(std::cbegin(Texts::rows), std::cend(Texts::rows));
    return table;
}

const QStringList& LaunchOptionTable::tabs()
{
    static const QStringList titles = [] {
        QStringList result;
        for (const LaunchOptionRow& row : rows()) {
            result.append(QString::fromLatin1(row.tab));
        }
        result.removeDuplicates();
        return result;
    }();
    return titles;
}

QStringList LaunchOptionTable::groups(const QString& tab)
{
    QStringList result;
    for (const LaunchOptionRow& row : rows()) {
        if (tab == QLatin1String(row.tab)) {
            result.append(QString::fromLatin1(row.group));
        }
    }
    result.removeDuplicates();
    return result;
}

QString LaunchOptionTable::title(const QString& name)
{
    return Texts::tr(name.toLatin1().constData());
}

bool LaunchOptionTable::hasMachines(const QString& group)
{
    return group == QLatin1String("Parallel runs") || group == QLatin1String("OPTKEST");
}
