// SPDX-License-Identifier: MIT
// The part of the launch options that makes the components' command lines from them.

#include <common_ComponentsLaunchOptions.h>

#include <common_LaunchOptionMembers.h>
#include <common_LaunchOptionNames.h>

#include <QRegularExpression>

#include <utility>

namespace {

namespace keys = common_LaunchOptionNames;
namespace members = common_LaunchOptionMembers;

QRegularExpression whiteSpace()
{
    return QRegularExpression(QStringLiteral("\\s"));
}

// 0 is not a member of the enumeration; old files contain it, and it means a local run.
QString authenticationWord(int method)
{
    switch (method) {
    case 0:
    case members::ParallelAuthenticMethodTypeNone:
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

struct common_ComponentsLaunchOptions::Argument
{
    const char* text;      ///< "%1" stands for the value
    const char* valueKey;  ///< null when the text has no value
    const char* switchKey; ///< the boolean option that decides; null when nothing does
    bool expected;         ///< the switch's value with which the argument is passed
};

QStringList common_ComponentsLaunchOptions::getPrekestOptions() const
{
    // clang-format off
    return argumentsOf({
        // text, key of "%1", key of its switch, value of the switch
        {"--ignore-errors",          nullptr,                      keys::prekestContinueWithErrors,       true},
        {"%1",                       keys::prekestAdvancedOptions, nullptr,                               true},
        {"--print-variables",        nullptr,                      keys::prekestExportVariablesToStdOut,  true},
        {"--print-variables-to-out", nullptr,                      keys::prekestExportVariablesToOutFile, true},
    });
    // clang-format on
}

QStringList common_ComponentsLaunchOptions::getKestSequentialOptions(bool remoteRun) const
{
    QStringList list;
    addPriorityOption(list);
    addGPUCommandOptions(list);
    addRemoteMethodOption(list, remoteRun);
    addCommandOption(list, text(keys::kestAdvancedOptions));
    addKestOptions(list);
    return list;
}

QStringList common_ComponentsLaunchOptions::getKestParallelOptions(bool remoteRun) const
{
    QStringList list;
    addPriorityOption(list);
    addConditionalCommandOption(
        list, QStringLiteral("-NP %1").arg(text(keys::kestNumberOfParallelProcesses)),
        QLatin1String(keys::kestSpecifyParallelProcesses), true);
    addCommandOption(list,
                     QStringLiteral("--parallel-authenticate %1")
                         .arg(authenticationWord(integer(keys::kestParallelAuthenticMethod))));
    addGPUCommandOptions(list);
    addRemoteMethodOption(list, remoteRun);
    // Simplified first: unlike in a sequential run, text that consists of blanks adds no element.
    addCommandOption(list, text(keys::kestAdvancedOptions).simplified());
    addKestOptions(list);
    return list;
}

QStringList common_ComponentsLaunchOptions::getKestRemoteOptions() const
{
    return text(keys::kestRemoteHost).split(whiteSpace());
}

QStringList common_ComponentsLaunchOptions::getAdaptkestOptions() const
{
    // clang-format off
    return argumentsOf({
        // text, key of "%1", key of its switch, value of the switch
        {"--restart %1", keys::adaptkestAnalysisNumber, keys::adaptkestRestartAnalysisNumber, true},
        {"--keep-files", nullptr,                       keys::adaptkestDeleteTempFiles,       false},
    });
    // clang-format on
}

QStringList common_ComponentsLaunchOptions::getOptkestOptions() const
{
    // clang-format off
    return argumentsOf({
        // text, key of "%1", key of its switch, value of the switch
        {"-NP %1",       keys::optkestNumberOfFarmProcesses, nullptr,                           true},
        {"--restart %1", keys::optkestSolverRun,             keys::optkestRestartFromSolverRun, true},
        {"-r",           nullptr,                            keys::optkestDeleteAllFiles,       true},
    });
    // clang-format on
}

QStringList common_ComponentsLaunchOptions::getAmrkestOptions() const
{
    QStringList list;
    const int iterations = integer(keys::amrkestMaximumIterations);
    if (boolean(keys::amrkestSpecifyMaximumIterations) && iterations > 0) {
        addCommandOption(list, QStringLiteral("--max-iterations %1").arg(iterations));
    }
    const QString frequency = text(keys::amrkestFrequency);
    if (boolean(keys::amrkestSpecifyFrequency) && !frequency.isEmpty()) {
        addCommandOption(list, QStringLiteral("--frequency %1").arg(frequency));
    }
    const QString threshold = thresholdWord(integer(keys::amrkestErrorThreshold));
    if (!threshold.isEmpty()) {
        addCommandOption(list, QStringLiteral("--error-threshold %1").arg(threshold));
    }
    // clang-format off
    return list << argumentsOf({
        {"--keep-files",       nullptr,                      keys::amrkestDeleteTempFiles, false},
        {"--skip-final-solve", nullptr,                      keys::amrkestSkipFinalSolve,  true},
        {"%1",                 keys::amrkestAdvancedOptions, nullptr,                      true},
    });
    // clang-format on
}

QStringList common_ComponentsLaunchOptions::getEnvironmentOptions() const
{
    return QStringList(
               QStringLiteral("KEST_MPISTATISTICS=%1").arg(integer(keys::kestParallelEnvOptions)))
           << text(keys::environmentVariables).split(QLatin1Char('\n'));
}

bool common_ComponentsLaunchOptions::isLocalOnlySpecified() const
{
    return integer(keys::kestParallelAuthenticMethod) == members::ParallelAuthenticMethodTypeNone;
}

bool common_ComponentsLaunchOptions::isRemoteHostArgumentSpecified() const
{
    return !text(keys::kestRemoteHost).trimmed().isEmpty();
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

QStringList
common_ComponentsLaunchOptions::argumentsOf(std::initializer_list<Argument> arguments) const
{
    QStringList list;
    for (const Argument& argument : arguments) {
        QString option = QLatin1String(argument.text);
        if (argument.valueKey) {
            option = option.arg(text(argument.valueKey));
        }
        if (argument.switchKey) {
            addConditionalCommandOption(list, option, QLatin1String(argument.switchKey),
                                        argument.expected);
        } else {
            addCommandOption(list, option);
        }
    }
    return list;
}

// Text that consists of blanks is not empty, and becomes one empty element.
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
    if (boolean(keys::kestCheckGeometryOnly)) {
        option += QStringLiteral(" --check-only");
    }
    if (boolean(keys::kestExportSPICEMTLCircuitFiles)) {
        option += QStringLiteral(" --mtl-circuit-export");
    }
    if (option != switchText) {
        addCommandOption(list, option);
    }
}

// With GPUs switched off the solver gets the count 0, unless the user has dismissed the note about
// GPUs; then it gets no GPU option at all.
void common_ComponentsLaunchOptions::addGPUCommandOptions(QStringList& list) const
{
    const bool use = boolean(keys::kestUseGPUforNVIDIA);
    const QString count = text(keys::kestNumberOfGPUs);
    const QString gpus = text(keys::kestGPUsList);
    QString option;
    if (!use) {
        if (!boolean(keys::kestDisableGPUNote)) {
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
    const int priority = integer(keys::kestProcessPriority);
    if (priority != members::NormalProcessPriority) {
        addCommandOption(list, QStringLiteral("--priority %1").arg(priority));
    }
}

void common_ComponentsLaunchOptions::addRemoteMethodOption(QStringList& list, bool remoteRun) const
{
    if (integer(keys::kestRemoteExecutionMethod) == members::MPIExecutionMethod && remoteRun &&
        isRemoteHostArgumentSpecified()) {
        addCommandOption(list, QStringLiteral("--remote-use-mpi"));
    }
}
