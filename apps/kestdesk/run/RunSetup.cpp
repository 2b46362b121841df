// SPDX-License-Identifier: MIT
#include "RunSetup.h"

#include "ComponentRunner.h"
#include "CopyAnnouncement.h"
#include "Installation.h"
#include "LaunchOptionsFile.h"
#include "MachinesCopies.h"
#include "MachinesPlaceholder.h"

#include <FileName.h>
#include <MachinesFile.h>
#include <SlurmJob.h>
#include <StartFolder.h>

#include <common_CommonSettingsSet.h>
#include <common_MachineFileFinder.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QTime>

#include <memory>

namespace {

const QString machinesFileOption = QStringLiteral("--machines-file");
const QString remoteHostOption = QStringLiteral("--remote-host");
constexpr int behindTheModel = 1; // the model is always the first argument

// The copy of the machines file that the arguments name, if it does not exist: the library does not
// report a failed copy.
QString missingMachinesFile(const common_ProcessRunnerBase& runner)
{
    const QStringList arguments = runner.getArguments();
    const int option = arguments.indexOf(machinesFileOption, behindTheModel);
    if (option < 0) {
        return QString();
    }
    const QString file = QDir(runner.getWorkingDirectory()).filePath(arguments.value(option + 1));
    return QFileInfo(file).isFile() ? QString() : file;
}

// Components run in the folder of the model. A clause; empty if they can.
QString folderProblem(const QFileInfo& model)
{
    const int length = QDir::toNativeSeparators(model.absolutePath()).size();
    const int longest = StartFolder::longestPath();
    return longest > 0 && length > longest
               ? QStringLiteral("the model %1 cannot be run: the path of its folder has %2 "
                                "characters, and this system starts no program in a folder whose "
                                "path has more than %3; move the model to a shorter path")
                     .arg(model.filePath())
                     .arg(length)
                     .arg(longest)
               : QString();
}

// What is missing for a set-up, as a clause; empty if nothing is missing.
QString missingPart(const Component& component, const QFileInfo& model)
{
    const QString nameProblem =
        suite::FileName::problem(suite::FileName::absolute(model.filePath()));
    if (!nameProblem.isEmpty()) {
        return QStringLiteral("the model %1 cannot be run: %2").arg(model.filePath(), nameProblem);
    }
    if (!model.exists()) {
        return QStringLiteral("there is no model %1").arg(model.filePath());
    }
    if (model.isDir()) {
        return QStringLiteral("%1 is a folder and not a model").arg(model.filePath());
    }
    QString folder = folderProblem(model);
    if (!folder.isEmpty()) {
        return folder;
    }
    const QString name = QLatin1String(component.name);
    return Installation::program(name).isEmpty()
               ? QStringLiteral("there is no component %1 in %2 (KEST_HOME names the installation)")
                     .arg(name, Installation::directory())
               : QString();
}

constexpr int longestSearch = 5000; // milliseconds to get a copy that belongs to the run alone
constexpr int second = 1000;        // milliseconds; each has its own name for a copy

// The folder of the copies.
QString userFolder()
{
    return qEnvironmentVariable("KEST_USER_HOME");
}

struct Target
{
    const Component& component;
    common_RunWrapper::RunOptions options;
    const QFileInfo& model;
    common_CommonSettingsSet& settings;
};

// Removes what earlier set-ups have added.
void clear(ComponentRunner& runner)
{
    runner.clearArguments();
    runner.setTemporaryFilenames({});
}

bool setUpOnce(ComponentRunner& runner, const Target& target)
{
    clear(runner);
    common_RunWrapper wrapper(&target.settings);
    return (wrapper.*target.component.setUp)(runner, target.model, target.options);
}

QString noOwnCopy()
{
    return QStringLiteral("the machines file cannot be copied: other runs use its copies "
                          "gui_tmp_machfile_0 to gui_tmp_machfile_999 in %1, or have left them; "
                          "remove those when no other run is going on")
        .arg(userFolder());
}

// A run on a remote host uses the machines file, whatever job this machine runs in.
bool isForRemoteHost(const QStringList& arguments, int machinesFile)
{
    const int host = arguments.indexOf(remoteHostOption, behindTheModel);
    return host >= 0 && host < machinesFile;
}

// Whether the run has hosts: from the job that this program runs in, or from the file that was
// copied.
RunSetup::Readiness hostReadiness(const common_ProcessRunnerBase& runner)
{
    const QStringList arguments = runner.getArguments();
    const int option = arguments.indexOf(machinesFileOption, behindTheModel);
    if (option < 0) {
        return {};
    }
    const suite::SlurmJob job;
    if (job.isThere() && !isForRemoteHost(arguments, option)) {
        return {job.error().isEmpty() ? RunSetup::Obstacle::None : RunSetup::Obstacle::Problem,
                job.error()};
    }
    common_MachineFileFinder finder;
    const QString file = finder.getMachineFileInfo()->absoluteFilePath();
    return suite::MachinesFile::read(file).namesNoHost()
               ? RunSetup::Readiness{RunSetup::Obstacle::NoHost,
                                     QStringLiteral("the machines file %1 names no host").arg(file)}
               : RunSetup::Readiness{};
}

bool needsHosts(common_RunWrapper::RunOptions options)
{
    return options & (common_RunWrapper::Parallel | common_RunWrapper::FarmOut);
}

bool lacksMachinesFile(common_RunWrapper::RunOptions options)
{
    return options.testFlag(common_RunWrapper::Parallel) && !common_MachineFileFinder().isValid();
}

// Checks the finished set-up.
RunSetup::Readiness readiness(const common_ProcessRunnerBase& runner)
{
    const QString missing = missingMachinesFile(runner);
    if (!missing.isEmpty()) {
        return {RunSetup::Obstacle::Problem,
                QStringLiteral("the machines file cannot be copied to %1").arg(missing)};
    }
    return hostReadiness(runner);
}

// Repeats the set-up until the copy of the machines file, if there is one, belongs to the run
// alone.
RunSetup::Readiness setUp(ComponentRunner& runner, const Target& target,
                          const MachinesCopies& copies)
{
    const QDeadlineTimer deadline(longestSearch);
    for (;;) {
        const QTime begun = QTime::currentTime();
        const MachinesCopies::Times before = copies.times();
        const auto announcement =
            needsHosts(target.options) ? std::make_unique<CopyAnnouncement>(userFolder()) : nullptr;
        const bool isSetUp = setUpOnce(runner, target);
        const int made = MachinesCopies::millisecondOf(runner);
        const bool isOwn = copies.claim(runner, before) == MachinesCopies::Claim::Own;
        if (!isSetUp) {
            const bool lacksFile = lacksMachinesFile(target.options);
            return {lacksFile ? RunSetup::Obstacle::NoFile : RunSetup::Obstacle::Shown, QString()};
        }
        if (isOwn) {
            return readiness(runner);
        }
        // Milliseconds from the beginning of a set-up until the copy is made.
        const int lead = (made - begun.msec() + second) % second;
        if (deadline.hasExpired() || !copies.waitForFreeName(copies.times(), lead)) {
            return {RunSetup::Obstacle::Problem, noOwnCopy()};
        }
    }
}

} // namespace

RunSetup::Readiness RunSetup::apply(ComponentRunner& runner, const Component& component,
                                    common_RunWrapper::RunOptions options, const QFileInfo& model,
                                    common_CommonSettingsSet& settings)
{
    clear(runner);
    const QString missing = missingPart(component, model);
    if (!missing.isEmpty()) {
        return {Obstacle::Problem, missing};
    }
    const QString problem = LaunchOptionsFile::problem();
    if (!problem.isEmpty()) {
        return {Obstacle::Problem, problem};
    }
    QDir().mkpath(userFolder());
    const MachinesCopies copies(userFolder());
    copies.removeLeft();
    const auto placeholder =
        needsHosts(options) ? std::make_unique<MachinesPlaceholder>(userFolder()) : nullptr;
    return setUp(runner, {component, options, model, settings}, copies);
}
