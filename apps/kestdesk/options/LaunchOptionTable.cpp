#include "LaunchOptionTable.h"

#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <iterator>

namespace {

constexpr const char* solver = "Kest Solver";
constexpr const char* preProcessor = "Pre-processor";
constexpr const char* utilities = "Utilities";
constexpr const char* amr = "AMR";
constexpr const char* environment = "Environment";
constexpr const char* freeText =
    "Passed on to the component, split at blanks. Quotes have no meaning.";

// clang-format off
constexpr LaunchOptionRow optionRows[] = {
    // key, tab, group, label, unit, switch, accessible name, hint
    {"RunParallel",                          solver,       "Run",                 "&parallel",                               "",           "",                                 "",                                                          "Run on several processors or machines at once, as the machines file says."},
    {"RunRemote",                            solver,       "Run",                 "&remote",                                 "",           "",                                 "",                                                          "Run on the remote host that is named below."},
    {"RunDetailsShown",                      solver,       "Run",                 "d&ialog",                                 "",           "",                                 "",                                                          "The window of a run opens with its output and messages unfolded."},
    {"Kest.ProcessPriority",                 solver,       "Solver",              "priorit&y",                               "",           "",                                 "",                                                          "How the solver shares the processor with other programs."},
    {"Kest.CheckGeometryOnly",               solver,       "Solver",              "Check the &geometry only",                "",           "",                                 "",                                                          "The solver looks at the model and ends without solving it."},
    {"Kest.ExportSPICEMTLCircuitFiles",      solver,       "Solver",              "Export &SPICE MTL circuit files",         "",           "",                                 "",                                                          "The solver writes circuit files of multiconductor transmission lines."},
    {"Kest.AdvancedOptions",                 solver,       "Solver",              "Ad&vanced options",                       "",           "",                                 "Advanced options of the solver",                            freeText},
    {"Kest.SpecifyParallelProcesses",        solver,       "Parallel runs",       "Specify the &number of processes",        "",           "",                                 "Specify the number of parallel processes",                  "Without it, all the processes of the machines file are used."},
    {"Kest.NumberOfParallelProcesses",       solver,       "Parallel runs",       "Number &of processes",                    "processes",  "Kest.SpecifyParallelProcesses",    "Number of parallel processes",                              "How many of the processes of the machines file are used: 1 to 4096."},
    {"Kest.UseSharedMemory",                 solver,       "Parallel runs",       "&Use shared memory",                      "",           "",                                 "",                                                          "Processes on one machine share their memory."},
    {"Kest.ParallelEnvOptions",              solver,       "Parallel runs",       "&MPI statistics",                         "level",      "",                                 "Level of MPI statistics",                                   "Told to the solver in the environment variable KEST_MPISTATISTICS; 0 is none."},
    {"Kest.ParallelAuthenticMethod",         solver,       "Parallel runs",       "Au&thentication method",                  "",           "",                                 "",                                                          "How the machines of a parallel run know that it is you."},
    {"Kest.RemoteHost",                      solver,       "Remote runs",         "Remote &host",                            "",           "",                                 "",                                                          "The name or address of the machine, such as node1 or me@node1 port=2222."},
    {"Kest.RemoteExecutionMethod",           solver,       "Remote runs",         "&Execution method",                       "",           "",                                 "Remote execution method",                                   "How the solver is started on the remote machine."},
    {"Kest.UseGPUforNVIDIA",                 solver,       "Graphics processors", "Use NVIDIA graphi&cs processors (GPUs)",  "",           "",                                 "Use NVIDIA graphics processors",                            "The solver computes on graphics processors where it can."},
    {"Kest.NumberOfGPUs",                    solver,       "Graphics processors", "Num&ber of GPUs",                         "GPUs",       "Kest.UseGPUforNVIDIA",             "Number of graphics processors",                             "A number such as 2; empty for all."},
    {"Kest.GPUsList",                        solver,       "Graphics processors", "&List of GPUs",                           "",           "Kest.UseGPUforNVIDIA",             "List of graphics processors",                               "Numbers with commas between them, such as 0,1; empty for any."},
    {"Kest.DisableGPUNote",                  solver,       "Graphics processors", "S&kip the GPU option while GPUs are off", "",           "",                                 "Skip the option of graphics processors while they are off", "While GPUs are off the solver is told \"--use-gpu 0\"; with this it is told nothing."},

    {"Prekest.ContinueWithErrors",           preProcessor, "Checks",              "&Continue with errors",                   "",           "",                                 "",                                                          "Errors in the model do not end the pre-processor."},
    {"Prekest.ExportVariablesToStdOut",      preProcessor, "Variables",           "&Print variables",                        "",           "",                                 "",                                                          "The model's variables are shown among the output of a run."},
    {"Prekest.ExportVariablesToOutFile",     preProcessor, "Variables",           "Print variables to the &output file",     "",           "",                                 "",                                                          "The model's variables are written to the output file."},
    {"Prekest.AdvancedOptions",              preProcessor, "Advanced",            "Ad&vanced options",                       "",           "",                                 "Advanced options of the pre-processor",                     freeText},

    {"Adaptkest.RestartAnalysisNumber",      utilities,    "ADAPTKEST",           "&Restart from an analysis",               "",           "",                                 "Restart ADAPTKEST from an analysis",                        "Go on with a sampling that was interrupted."},
    {"Adaptkest.AnalysisNumber",             utilities,    "ADAPTKEST",           "Analysis &number",                        "",           "Adaptkest.RestartAnalysisNumber",  "Number of the analysis to restart from",                    "The first analysis to be done again: 1 or more."},
    {"Adaptkest.DeleteTempFiles",            utilities,    "ADAPTKEST",           "Delete &temporary files",                 "",           "",                                 "Delete temporary files of ADAPTKEST",                       "Files of single analyses are removed at the end."},
    {"FarmOut",                              utilities,    "OPTKEST",             "&farming",                                "",           "",                                 "",                                                          "OPTKEST runs several solvers at once, on the machines of the machines file."},
    {"Optkest.SpecifyNumberOfFarmProcesses", utilities,    "OPTKEST",             "Specify the number of farm processes",    "",           "",                                 "",                                                          "Always on: OPTKEST needs the number."},
    {"Optkest.NumberOfFarmProcesses",        utilities,    "OPTKEST",             "Number of farm &processes",               "processes",  "",                                 "",                                                          "How many solvers run at once when they are farmed out: 2 to 4096."},
    {"Optkest.RestartFromSolverRun",         utilities,    "OPTKEST",             "R&estart from a solver run",              "",           "",                                 "Restart OPTKEST from a solver run",                         "Go on with an optimisation that was interrupted."},
    {"Optkest.SolverRun",                    utilities,    "OPTKEST",             "Solver r&un",                             "",           "Optkest.RestartFromSolverRun",     "Number of the solver run to restart from",                  "The first solver run to be done again: 1 or more."},
    {"Optkest.DeleteAllFiles",               utilities,    "OPTKEST",             "De&lete all files",                       "",           "",                                 "Delete all files of OPTKEST",                               "Files of single solver runs are removed, except for the best."},
    {"Timekest.DeleteTempFiles",             utilities,    "TIMEKEST",            "Delete temporary files",                  "",           "",                                 "Delete temporary files of TIMEKEST",                        "Not in use: no component of this suite reads it, and it is not kept."},

    {"Amrkest.ErrorThreshold",               amr,          "Refinement",          "&Error threshold",                        "",           "",                                 "",                                                          "How fine the model becomes."},
    {"Amrkest.SpecifyMaximumIterations",     amr,          "Refinement",          "&Limit the number of iterations",         "",           "",                                 "",                                                          "Without it, AMRKEST refines until the error is small enough."},
    {"Amrkest.MaximumIterations",            amr,          "Refinement",          "Maximum &iterations",                     "iterations", "Amrkest.SpecifyMaximumIterations", "Maximum number of iterations",                              "AMRKEST ends after so many: 1 or more."},
    {"Amrkest.SpecifyFrequency",             amr,          "Refinement",          "&Specify the frequency",                  "",           "",                                 "",                                                          "Without it, AMRKEST chooses one of the model's frequencies."},
    {"Amrkest.Frequency",                    amr,          "Refinement",          "&Frequency",                              "MHz",        "Amrkest.SpecifyFrequency",         "Frequency in megahertz",                                    "The frequency that the model is refined for, such as 14.2 or 1e3."},
    {"Amrkest.DeleteTempFiles",              amr,          "Files",               "Delete &temporary files",                 "",           "",                                 "Delete temporary files of AMRKEST",                         "Files of single iterations are removed at the end."},
    {"Amrkest.SkipFinalSolve",               amr,          "Files",               "S&kip the final solve",                   "",           "",                                 "",                                                          "The refined model is written and not solved."},
    {"Amrkest.AdvancedOptions",              amr,          "Advanced",            "Ad&vanced options",                       "",           "",                                 "Advanced options of AMRKEST",                               freeText},

    {"EnvironmentVariables",                 environment,  "Environment",         "Environment &variables",                  "",           "",                                 "",                                                          "Set for the solver's process: NAME=VALUE, one a line, without a further \"=\"."},
};
// clang-format on

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

} // namespace

QString LaunchOptionRow::text() const
{
    const QString own = QString::fromLatin1(label);
    const QString registered = metaData().label();
    return registered.contains(plain(own)) ? QString(registered).replace(plain(own), own) : own;
}

QString LaunchOptionRow::plainText() const
{
    return plain(text());
}

QString LaunchOptionRow::spokenName() const
{
    const QString registered = metaData().label();
    const QString own = QString::fromLatin1(accessibleName);
    return !own.isEmpty() ? own : !registered.isEmpty() ? registered : plainText();
}

const common_PropertyMetaData& LaunchOptionRow::metaData() const
{
    return common_PropertyFactory::getMetaData(QString::fromLatin1(key));
}

const QVector<LaunchOptionRow>& LaunchOptionTable::rows()
{
    static const QVector<LaunchOptionRow> table(std::cbegin(optionRows), std::cend(optionRows));
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

bool LaunchOptionTable::hasMachines(const QString& group)
{
    return group == QLatin1String("Parallel runs") || group == QLatin1String("OPTKEST");
}
