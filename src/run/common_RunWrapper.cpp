// SPDX-License-Identifier: MIT
#include <common_RunWrapper.h>

#include "common_ErrorQuery.h"

#include <common_CommonSettingsSet.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_EnvironmentVariablesExt.h>
#include <common_MachineFileFinder.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTime>

namespace {

// Removes the first option of that name and the value behind it. Returns the value.
QString takeOptionWithValue(QStringList& options, const QString& option)
{
    QString value;
    const int index = options.indexOf(option);
    if (index >= 0) {
        if (index + 1 < options.size()) {
            value = options.takeAt(index + 1);
        }
        options.removeAt(index);
    }
    return value;
}

void addGroup(common_RunWrapper::Runner& runner, const QString& option, const QStringList& group)
{
    if (!group.isEmpty()) {
        runner.addArgument(option);
        runner.addArguments(group);
    }
}

} // namespace

common_RunWrapper::common_RunWrapper(common_CommonSettingsSet* settings) : m_pSettings(settings)
{}

common_RunWrapper::~common_RunWrapper() = default;

bool common_RunWrapper::setupPrekestProcess(Runner& runner, const QFileInfo& modelFile,
                                            QFlags<RunOption> /*options*/)
{
    applyComponent(runner, modelFile, QStringLiteral("/bin/prekest"));
    applyEnvironment(runner);
    QString processCount;
    runner.addArguments(getProcessArguments(
        m_pSettings->getComponentsLaunchOptions()->getPrekestOptions(), processCount));
    return true;
}

bool common_RunWrapper::setupKestProcess(Runner& runner, const QFileInfo& modelFile,
                                         QFlags<RunOption> options)
{
    applyComponent(runner, modelFile, QStringLiteral("/bin/runkest"));
    if (!applyRemoteRunArguments(runner, options)) {
        return false;
    }
    applyEnvironment(runner);
    if (!validateMachinesFileForParallelRun(options)) {
        return false;
    }
    applyRunkestArguments(runner, options, CopyMachinesFile);
    applyPreKestArguments(runner);
    applyAdaptKestArguments(runner);
    return true;
}

bool common_RunWrapper::setupOptkestProcess(Runner& runner, const QFileInfo& modelFile,
                                            QFlags<RunOption> options)
{
    applyComponent(runner, modelFile, QStringLiteral("/bin/optkest"));
    applyEnvironment(runner);
    QStringList optimiserOptions = m_pSettings->getComponentsLaunchOptions()->getOptkestOptions();
    if (options & Parallel) {
        optimiserOptions = checkCompatibilityNP(optimiserOptions);
    }
    QString processCount;
    runner.addArguments(getProcessArguments(optimiserOptions, processCount));

    MachinesFileOption machinesFileOption = CopyMachinesFile;
    if (validateMachinesFileForFarmingRun(options)) {
        applyMachinesFileArguments(
            runner,
            checkCompatibilityNP(m_pSettings->getComponentsLaunchOptions()->getOptkestOptions()),
            CopyMachinesFile);
        machinesFileOption = ProcessCountOnly;
    }
    if (!validateMachinesFileForParallelRun(options)) {
        return false;
    }
    runner.addArgument(QStringLiteral("--runkest-options"));
    if (!applyRemoteRunArguments(runner, options)) {
        return false;
    }
    applyRunkestArguments(runner, options, machinesFileOption);
    applyPreKestArguments(runner);
    applyAdaptKestArguments(runner);
    return true;
}

bool common_RunWrapper::setupAmrkestProcess(Runner& runner, const QFileInfo& modelFile,
                                            QFlags<RunOption> options)
{
    applyComponent(runner, modelFile, QStringLiteral("/bin/amrkest"));
    applyEnvironment(runner);
    runner.addArguments(m_pSettings->getComponentsLaunchOptions()->getAmrkestOptions());
    addGroup(runner, QStringLiteral("--runkest-options"), getRunkestArguments(options));
    return true;
}

// The model is passed by its bare name, which is resolved in the working directory.
void common_RunWrapper::applyComponent(Runner& runner, const QFileInfo& modelFile,
                                       const QString& program) const
{
    runner.setWorkingDirectory(modelFile.absolutePath());
    runner.setExecutable(
        QFileInfo(common_EnvironmentVariablesExt::getVariableExpanded("KEST_HOME") + program));
    runner.addArgument(modelFile.fileName());
}

void common_RunWrapper::applyEnvironment(Runner& runner) const
{
    runner.addArgument(QStringLiteral("--run-from-gui"));
    runner.setProcessEnvironment(
        m_pSettings->getComponentsLaunchOptions()->getEnvironmentOptions());
}

void common_RunWrapper::applyPreKestArguments(Runner& runner) const
{
    addGroup(runner, QStringLiteral("--prekest-options"),
             m_pSettings->getComponentsLaunchOptions()->getPrekestOptions());
}

void common_RunWrapper::applyAdaptKestArguments(Runner& runner) const
{
    addGroup(runner, QStringLiteral("--adaptkest-options"),
             m_pSettings->getComponentsLaunchOptions()->getAdaptkestOptions());
}

void common_RunWrapper::applyRunkestArguments(Runner& runner, QFlags<RunOption> options,
                                              MachinesFileOption machinesFileOption)
{
    if (options & Parallel) {
        applyMachinesFileArguments(
            runner,
            checkCompatibilityNP(m_pSettings->getComponentsLaunchOptions()->getKestParallelOptions(
                options & Remote)),
            machinesFileOption);
    }
    runner.addArguments(getRunkestArguments(options));
}

bool common_RunWrapper::applyRemoteRunArguments(Runner& runner, QFlags<RunOption> options) const
{
    if (!(options & Remote)) {
        return true;
    }
    const auto launchOptions = m_pSettings->getComponentsLaunchOptions();
    if (!launchOptions->isRemoteHostArgumentSpecified()) {
        common_showError(
            QStringLiteral("No remote host argument specified"),
            QStringLiteral("Unable to do remote launching since the remote host has not been "
                           "provided."));
        return false;
    }
    runner.addArgument(QStringLiteral("--remote-host"));
    runner.addArgument(launchOptions->getKestRemoteOptions().join(QLatin1Char(' ')));
    return true;
}

// The run gets a copy of the machines file, so that the user may change the file during the run.
// The runner deletes the copy when the run ends.
void common_RunWrapper::applyMachinesFileArguments(Runner& runner, const QStringList& options,
                                                   MachinesFileOption machinesFileOption)
{
    common_MachineFileFinder finder;
    const QString suffix = QStringLiteral("/gui_tmp_machfile_%1").arg(QTime::currentTime().msec());
    if (!finder.isValid()) {
        return;
    }
    QString processCount;
    getProcessArguments(options, processCount);
    runner.addArgument(QStringLiteral("-np"));
    runner.addArgument(processCount.isEmpty() ? QStringLiteral("all") : processCount);
    if (machinesFileOption == ProcessCountOnly) {
        return;
    }
    if (finder.isLocalFile()) {
        m_temporaryMachinesFile = finder.getMachineFileInfo()->path() + suffix;
    } else if (finder.checkEnv(QStringLiteral("KEST_USER_HOME"))) {
        m_temporaryMachinesFile =
            common_EnvironmentVariablesExt::getVariableExpanded("KEST_USER_HOME") + suffix;
    }
    if (finder.getMachineFileInfo()->isFile()) { // opening a pipe would wait for its other end
        QFile::copy(finder.getMachineFileInfo()->absoluteFilePath(), m_temporaryMachinesFile);
    }
    runner.setTemporaryFilenames({m_temporaryMachinesFile});
    if (!m_pSettings->getComponentsLaunchOptions()->isLocalOnlySpecified()) {
        runner.addArgument(QStringLiteral("--machines-file"));
        runner.addArgument(QDir::toNativeSeparators(m_temporaryMachinesFile));
    }
}

QStringList common_RunWrapper::getRunkestArguments(QFlags<RunOption> options) const
{
    const auto launchOptions = m_pSettings->getComponentsLaunchOptions();
    const bool remote = options & Remote;
    QString processCount;
    return getProcessArguments(
        options & Parallel ? checkCompatibilityNP(launchOptions->getKestParallelOptions(remote))
                           : launchOptions->getKestSequentialOptions(remote),
        processCount);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): one of a family
QStringList common_RunWrapper::getProcessArguments(QStringList options, QString& processCount) const
{
    const QString count = takeOptionWithValue(options, QStringLiteral("-NP"));
    if (!count.isEmpty()) {
        processCount = count;
    }
    return options;
}

bool common_RunWrapper::validateMachinesFileForParallelRun(QFlags<RunOption> options) const
{
    if (!(options & Parallel) || common_MachineFileFinder().isValid()) {
        return true;
    }
    common_showError(
        QStringLiteral("No machines file"),
        QStringLiteral("No machines file could be found. Please configure one using\n"
                       "\"Component launch options\" (select the \"Kest Solver\" tab and\n"
                       "click \"Configure\") or uncheck \"Parallel\" on the \"Run/launch\"\n"
                       "group to switch to sequential execution.\n"));
    return false;
}

// Unlike the check of a parallel run, returns whether to farm the run out.
bool common_RunWrapper::validateMachinesFileForFarmingRun(QFlags<RunOption> options) const
{
    if (!(options & FarmOut)) {
        return false;
    }
    if (common_MachineFileFinder().isValid()) {
        return true;
    }
    common_showError(
        QStringLiteral("No machines file"),
        QStringLiteral("No machines file could be found. Please configure one using\n"
                       "\"Component launch options\" (select the \"Utilities\" tab and\n"
                       "click \"Configure\") or uncheck \"Run -> Farm out by OPTKEST\"\n"
                       "to switch to sequential execution."));
    return false;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): one of a family
QStringList common_RunWrapper::checkCompatibilityNP(QStringList options) const
{
    takeOptionWithValue(options, QStringLiteral("-np"));
    return options;
}
