// SPDX-License-Identifier: MIT
#include "RunFacts.h"

#include "LaunchOptionsFile.h"
#include "ProcessEnd.h"
#include "Run.h"
#include "RunOptionWords.h"

#include <Installation.h>
#include <SuiteVersion.h>

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <iterator>

namespace {

using Options = common_ComponentsLaunchOptions;

// An unreadable file needs no handling here: such runs are not started.
QVector<RunRecord::Option> launchOptions()
{
    const Options::Pointer options = Options::create(ReadOnlyAccess);
    const Options::Pointer defaults = Options::create(ReadOnlyAccess);
    defaults->restoreDefaults();
    QVector<RunRecord::Option> result;
    const QStringList names = LaunchOptionsFile::keptNames(*options);
    for (const QString& name : names) {
        result.append({name, LaunchOptionsFile::value(*options, name),
                       LaunchOptionsFile::value(*defaults, name)});
    }
    return result;
}

QStringList environment()
{
    QStringList result = Options::create(ReadOnlyAccess)->getEnvironmentOptions();
    result.removeAll(QString());
    return result;
}

void addComputer(RunRecord& record)
{
    record.host = QSysInfo::machineHostName();
    record.system = QSysInfo::prettyProductName();
    record.processor = QSysInfo::currentCpuArchitecture();
    record.cores = QThread::idealThreadCount();
    record.user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    record.suiteVersion = suite::version();
    record.qtVersion = QString::fromLatin1(qVersion());
    record.installation = Installation::directory();
}

RunRecord::State stateOf(RunOutcome::Kind kind)
{
    using State = RunRecord::State;
    constexpr State states[] = {State::Valid, State::Fault, State::NotStarted, State::Stopped};
    return states[static_cast<int>(kind)];
}

void addExit(const Run& run, RunRecord& record)
{
    record.exitCode = run.runner()->exitCode();
    record.isCrash = run.runner()->crashExit();
}

QVector<RunRecord::File> files(const Run& run)
{
    QVector<RunRecord::File> result;
    const QDir folder = QFileInfo(run.model()).absoluteDir();
    for (const QString& name : run.files()) {
        const QFileInfo file(folder, name);
        result.append({file.absoluteFilePath(), file.isFile() ? file.size() : -1, {}, {}});
    }
    return result;
}

} // namespace

RunRecord RunFacts::ofProgram(const Run& run)
{
    const common_ActivePtr<ComponentRunner> runner = run.runner();
    RunRecord record;
    record.component = run.componentName();
    record.model = QFileInfo(run.model()).absoluteFilePath();
    record.program = runner->getExecutable().filePath();
    record.arguments = runner->getArguments();
    record.workingDirectory = runner->getWorkingDirectory();
    addComputer(record);
    return record;
}

RunRecord RunFacts::atStart(const Run& run, common_RunWrapper::RunOptions options)
{
    RunRecord record = ofProgram(run);
    record.started = QDateTime::currentDateTimeUtc();
    record.runOptions = RunOptionWords::of(options);
    record.environment = environment();
    record.launchOptions = launchOptions();
    return record;
}

QString RunFacts::machinesFile(const Run& run)
{
    return run.runner()->getTemporaryFilenames().value(0);
}

RunRecord RunFacts::atEnd(const Run& run)
{
    const RunOutcome& outcome = run.outcome();
    RunRecord record;
    record.ended = QDateTime::currentDateTimeUtc();
    record.duration = run.elapsed();
    record.state = stateOf(outcome.kind());
    record.outcome = outcome.title();
    record.reason = outcome.reason();
    record.problem = run.problem();
    if (record.state != RunRecord::State::NotStarted) {
        addExit(run, record);
    }
    record.stoppedBy = run.stoppedBy();
    record.files = files(run);
    return record;
}
