// The part of the launch options that makes command lines of them.

#include <common_ComponentsLaunchOptions.h>

#include <QRegExp>

#include <utility>

namespace {

constexpr int normalPriority = 2;
constexpr int mpiExecution = 1;
constexpr int localRunOnly = 2;

QRegExp whiteSpace()
{
    return QRegExp(QStringLiteral("\\s"));
}

// 0 is no member of the enumeration; old files hold it, and it has always meant a local run.
QString authenticationWord(int method)
{
    switch (method) {
    case 0:
    case localRunOnly:
        return QStringLiteral("localonly");
    case 1:
        return QStringLiteral("sspi");
    default:
        return QStringLiteral("default");
    }
}

QString thresholdWord(int threshold)
{
    switch (threshold) {
    case 0:
        return QStringLiteral("high");
    case 2:
        return QStringLiteral("low");
    default:
        return QString();
    }
}

} // namespace

QStringList common_ComponentsLaunchOptions::getPrekestOptions() const
{
    QStringList list;
    addConditionalCommandOption(list, QStringLiteral("--ignore-errors"),
                                QStringLiteral("Prekest.ContinueWithErrors"), true);
    addCommandOption(list, text("Prekest.AdvancedOptions"));
    addConditionalCommandOption(list, QStringLiteral("--print-variables"),
                                QStringLiteral("Prekest.ExportVariablesToStdOut"), true);
    addConditionalCommandOption(list, QStringLiteral("--print-variables-to-out"),
                                QStringLiteral("Prekest.ExportVariablesToOutFile"), true);
    return list;
}

QStringList common_ComponentsLaunchOptions::getKestSequentialOptions(bool remoteRun) const
{
    QStringList list;
    addPriorityOption(list);
    addGPUCommandOptions(list);
    addRemoteMethodOption(list, remoteRun);
    addCommandOption(list, text("Kest.AdvancedOptions"));
    addKestOptions(list);
    return list;
}

QStringList common_ComponentsLaunchOptions::getKestParallelOptions(bool remoteRun) const
{
    QStringList list;
    addPriorityOption(list);
    addConditionalCommandOption(
        list, QStringLiteral("-NP %1").arg(text("Kest.NumberOfParallelProcesses")),
        QStringLiteral("Kest.SpecifyParallelProcesses"), true);
    addCommandOption(list, QStringLiteral("--parallel-authenticate %1")
                               .arg(authenticationWord(integer("Kest.ParallelAuthenticMethod"))));
    addGPUCommandOptions(list);
    addRemoteMethodOption(list, remoteRun);
    // Simplified first: here blanks only are no element, unlike in a sequential run.
    addCommandOption(list, text("Kest.AdvancedOptions").simplified());
    addKestOptions(list);
    return list;
}

QStringList common_ComponentsLaunchOptions::getKestRemoteOptions() const
{
    return text("Kest.RemoteHost").split(whiteSpace());
}

QStringList common_ComponentsLaunchOptions::getAdaptkestOptions() const
{
    QStringList list;
    addConditionalCommandOption(
        list, QStringLiteral("--restart %1").arg(integer("Adaptkest.AnalysisNumber")),
        QStringLiteral("Adaptkest.RestartAnalysisNumber"), true);
    addConditionalCommandOption(list, QStringLiteral("--keep-files"),
                                QStringLiteral("Adaptkest.DeleteTempFiles"), false);
    return list;
}

QStringList common_ComponentsLaunchOptions::getOptkestOptions() const
{
    QStringList list;
    addCommandOption(list, QStringLiteral("-NP %1").arg(integer("Optkest.NumberOfFarmProcesses")));
    addConditionalCommandOption(list,
                                QStringLiteral("--restart %1").arg(integer("Optkest.SolverRun")),
                                QStringLiteral("Optkest.RestartFromSolverRun"), true);
    addConditionalCommandOption(list, QStringLiteral("-r"),
                                QStringLiteral("Optkest.DeleteAllFiles"), true);
    return list;
}

QStringList common_ComponentsLaunchOptions::getAmrkestOptions() const
{
    QStringList list;
    const int iterations = integer("Amrkest.MaximumIterations");
    if (boolean("Amrkest.SpecifyMaximumIterations") && iterations > 0) {
        addCommandOption(list, QStringLiteral("--max-iterations %1").arg(iterations));
    }
    const QString frequency = text("Amrkest.Frequency");
    if (boolean("Amrkest.SpecifyFrequency") && !frequency.isEmpty()) {
        addCommandOption(list, QStringLiteral("--frequency %1").arg(frequency));
    }
    const QString threshold = thresholdWord(integer("Amrkest.ErrorThreshold"));
    if (!threshold.isEmpty()) {
        addCommandOption(list, QStringLiteral("--error-threshold %1").arg(threshold));
    }
    addConditionalCommandOption(list, QStringLiteral("--keep-files"),
                                QStringLiteral("Amrkest.DeleteTempFiles"), false);
    addConditionalCommandOption(list, QStringLiteral("--skip-final-solve"),
                                QStringLiteral("Amrkest.SkipFinalSolve"), true);
    addCommandOption(list, text("Amrkest.AdvancedOptions"));
    return list;
}

QStringList common_ComponentsLaunchOptions::getEnvironmentOptions() const
{
    return QStringList(
               QStringLiteral("KEST_MPISTATISTICS=%1").arg(integer("Kest.ParallelEnvOptions")))
           << text("EnvironmentVariables").split(QLatin1Char('\n'));
}

bool common_ComponentsLaunchOptions::isLocalOnlySpecified() const
{
    return integer("Kest.ParallelAuthenticMethod") == localRunOnly;
}

bool common_ComponentsLaunchOptions::isRemoteHostArgumentSpecified() const
{
    return !text("Kest.RemoteHost").trimmed().isEmpty();
}

bool common_ComponentsLaunchOptions::boolean(const char* key) const
{
    return (*this)[QString::fromLatin1(key)].castToBool();
}

int common_ComponentsLaunchOptions::integer(const char* key) const
{
    return (*this)[QString::fromLatin1(key)].castToInt();
}

QString common_ComponentsLaunchOptions::text(const char* key) const
{
    return (*this)[QString::fromLatin1(key)].castToQString();
}

// Text of blanks only is not empty, and gives one empty element.
// NOLINTNEXTLINE(*-unnecessary-value-param, *-member-functions-to-static): declared so
void common_ComponentsLaunchOptions::addCommandOption(QStringList& list, QString text) const
{
    if (!text.isEmpty()) {
        list << text.simplified().split(whiteSpace());
    }
}

void common_ComponentsLaunchOptions::addConditionalCommandOption(
    QStringList& list, QString text,
    QString propertyName, // NOLINT(performance-unnecessary-value-param): declared so
    bool expected) const
{
    if ((*this)[propertyName].castToBool() == expected) {
        addCommandOption(list, std::move(text));
    }
}

void common_ComponentsLaunchOptions::addKestOptions(QStringList& list) const
{
    const QString switchText = QStringLiteral("--kest-options");
    QString option = switchText;
    if (boolean("Kest.CheckGeometryOnly")) {
        option += QStringLiteral(" --check-only");
    }
    if (boolean("Kest.ExportSPICEMTLCircuitFiles")) {
        option += QStringLiteral(" --mtl-circuit-export");
    }
    if (option != switchText) {
        addCommandOption(list, option);
    }
}

// With the GPUs switched off the solver is told so, unless the user has dismissed the note about
// them; then it hears nothing.
void common_ComponentsLaunchOptions::addGPUCommandOptions(QStringList& list) const
{
    const bool use = boolean("Kest.UseGPUforNVIDIA");
    const QString count = text("Kest.NumberOfGPUs");
    const QString gpus = text("Kest.GPUsList");
    QString option;
    if (!use) {
        if (!boolean("Kest.DisableGPUNote")) {
            option = QStringLiteral("--use-gpu %1").arg(0);
        }
    } else if (count.isEmpty() && gpus.isEmpty()) {
        option = QStringLiteral("--use-gpu");
    } else if (gpus.isEmpty()) {
        option = QStringLiteral("--use-gpu %1").arg(count.toInt());
    } else if (count.isEmpty()) {
        option = QStringLiteral("--use-gpu :%1").arg(gpus);
    } else {
        option = QStringLiteral("--use-gpu %1:%2").arg(count.toInt()).arg(gpus);
    }
    addCommandOption(list, option);
}

void common_ComponentsLaunchOptions::addPriorityOption(QStringList& list) const
{
    const int priority = integer("Kest.ProcessPriority");
    if (priority != normalPriority) {
        addCommandOption(list, QStringLiteral("--priority %1").arg(priority));
    }
}

void common_ComponentsLaunchOptions::addRemoteMethodOption(QStringList& list, bool remoteRun) const
{
    if (integer("Kest.RemoteExecutionMethod") == mpiExecution && remoteRun &&
        isRemoteHostArgumentSpecified()) {
        addCommandOption(list, QStringLiteral("--remote-use-mpi"));
    }
}
