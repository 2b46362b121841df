// SPDX-License-Identifier: MIT
#include <common_ProcessRunnerBase.h>

#include "common_LineBuffer.h"
#include "common_ProcessRunnerDelivery.h"

#include <ConsoleWindow.h>
#include <FileReplacement.h>
#include <LineEnd.h>
#include <QtVersion.h>
#include <common_EnvironmentVariablesExt.h>
#include <common_IProcessMessage.h>
#include <common_ProcessRunnerMediator.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <exception>
#include <utility>

namespace {

constexpr const char* sourceFile = "src/process/common_ProcessRunnerBase.cpp";
constexpr int channelOutput = QProcess::StandardOutput;
constexpr int channelError = QProcess::StandardError;

} // namespace

int common_ProcessRunnerBase::s_processCount = 0;

common_ProcessRunnerBase::common_ProcessRunnerBase()
    : m_pProcess(std::make_unique<QProcess>())
    , m_logDirectory(
          common_EnvironmentVariablesExt::getVariableExpanded("DUMP_KERNEL_STDOUT_STDERR"))
    , m_logEnabled(!m_logDirectory.isEmpty())
    , m_pMediator(std::make_unique<common_ProcessRunnerMediator>(this))
    , m_outputLines(std::make_unique<common_LineBuffer>())
    , m_errorLines(std::make_unique<common_LineBuffer>())
{
    m_pMediator->setProcess(m_pProcess.get());
    m_pProcess->setProcessChannelMode(QProcess::SeparateChannels);
    m_pProcess->setReadChannel(QProcess::StandardOutput);
    ++s_processCount;
}

// NOLINTBEGIN(*-init): gcc wants the bases named, and they stay empty
common_ProcessRunnerBase::common_ProcessRunnerBase(const common_ProcessRunnerBase& /*other*/)
    : common_ObservableVia<common_IProcessRunnerObserver>(), common_IProcessRunnerMediatorObserver()
{
    COMMON_ASSERT_AT(false, "0", sourceFile, 40);
}
// NOLINTEND(*-init)

common_ProcessRunnerBase&
common_ProcessRunnerBase::operator=(const common_ProcessRunnerBase& /*other*/)
{
    COMMON_ASSERT_AT(false, "0", sourceFile, 45);
    throw std::exception();
}

common_ProcessRunnerBase::~common_ProcessRunnerBase()
{
    if (!m_pProcess) {
        return; // an incomplete copy, which was not counted
    }
    if (isRunning()) {
        m_pProcess->terminate();
    }
    --s_processCount;
    m_pMediator.reset();
    if (m_logEnabled && m_pLogFile) {
        m_pLogFile->close();
    }
    if (m_deliveries > 0) {
        m_pProcess.release()->deleteLater();
    }
}

void common_ProcessRunnerBase::setProcessEnvironment(const QStringList& entries)
{
    assertNotRunning(77);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& entry : entries) {
        const QStringList parts = entry.split(QLatin1Char('='));
        if (!entry.trimmed().isEmpty() && parts.size() == 2) {
            environment.insert(parts[0].simplified(), parts[1].simplified());
        }
    }
    m_pProcess->setProcessEnvironment(environment);
}

void common_ProcessRunnerBase::setArguments(const QStringList& arguments)
{
    assertNotRunning(97);
    m_arguments = arguments;
}

void common_ProcessRunnerBase::addArgument(const QString& argument)
{
    assertNotRunning(104);
    m_arguments.append(argument);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the exported signature is kept
void common_ProcessRunnerBase::addArguments(QStringList arguments)
{
    assertNotRunning(111);
    m_arguments.append(arguments);
}

void common_ProcessRunnerBase::clearArguments()
{
    assertNotRunning(118);
    m_arguments.clear();
}

void common_ProcessRunnerBase::setExecutable(const QFileInfo& fileInfo)
{
    assertNotRunning(130);
    COMMON_ASSERT_AT(!fileInfo.absoluteFilePath().isEmpty(),
                     "!fileInfo.absoluteFilePath().isEmpty()", sourceFile, 131);
    m_executable = fileInfo.absoluteFilePath();
}

void common_ProcessRunnerBase::setExecutable(const QString& executable)
{
    assertNotRunning(138);
    m_executable = executable;
}

void common_ProcessRunnerBase::setWorkingDirectory(const QString& directory)
{
    assertNotRunning(151);
    m_pProcess->setWorkingDirectory(directory);
}

void common_ProcessRunnerBase::setTemporaryFilenames(const QStringList& filenames)
{
    assertNotRunning(163);
    m_temporaryFiles.clear();
    for (const QString& filename : filenames) {
        m_temporaryFiles.append(QFileInfo(filename));
    }
}

QStringList common_ProcessRunnerBase::getArguments() const
{
    return m_arguments;
}

QFileInfo common_ProcessRunnerBase::getExecutable() const
{
    return QFileInfo(m_executable);
}

QString common_ProcessRunnerBase::getWorkingDirectory() const
{
    return m_pProcess->workingDirectory();
}

QStringList common_ProcessRunnerBase::getTemporaryFilenames() const
{
    QStringList filenames;
    for (const QFileInfo& file : m_temporaryFiles) {
        filenames.append(file.filePath());
    }
    return filenames;
}

bool common_ProcessRunnerBase::isRunning() const
{
    return m_pProcess->state() != QProcess::NotRunning;
}

int common_ProcessRunnerBase::exitCode() const
{
    return m_pProcess->exitCode();
}

bool common_ProcessRunnerBase::normalExit() const
{
    return m_pProcess->exitStatus() == QProcess::NormalExit && exitCode() == 0;
}

bool common_ProcessRunnerBase::crashExit() const
{
    return m_pProcess->exitStatus() == QProcess::CrashExit;
}

bool common_ProcessRunnerBase::isStopRequested() const
{
    return m_stopRequested;
}

bool common_ProcessRunnerBase::run()
{
    const Delivery delivery(this);
    return startProcess();
}

bool common_ProcessRunnerBase::runAndWaitForFinish()
{
    const Delivery delivery(this);
    return startProcess() && m_pProcess->waitForFinished(-1);
}

void common_ProcessRunnerBase::stopProcess()
{
    const bool isFirst = isRunning() && !m_stopRequested;
    m_stopRequested = m_stopRequested || isRunning();
    m_pProcess->terminate();
    if (isFirst) {
        onStopRequested();
    }
}

int common_ProcessRunnerBase::getProcessCount()
{
    return s_processCount;
}

void common_ProcessRunnerBase::onStopRequested()
{}

void common_ProcessRunnerBase::onReadPipe()
{
    const Delivery delivery(this);
    readLines(*m_outputLines, channelOutput);
}

void common_ProcessRunnerBase::onReadErrorPipe()
{
    const Delivery delivery(this);
    readLines(*m_errorLines, channelError);
}

void common_ProcessRunnerBase::onProcessDone()
{
    const Delivery delivery(this);
    readLines(*m_outputLines, channelOutput);
    readLines(*m_errorLines, channelError);
    const QVector<QFileInfo> filesOfRun = m_temporaryFiles;
    notifyProcessDone();
    removeTemporaryFiles(filesOfRun);
}

QProcess& common_ProcessRunnerBase::process()
{
    return *m_pProcess;
}

void common_ProcessRunnerBase::hideConsole()
{
    ConsoleWindow::detach();
}

void common_ProcessRunnerBase::logProcessOutput()
{
    if (!m_logEnabled || m_pLogFile) {
        return;
    }
    const QString baseName = m_arguments.isEmpty() ? m_executable : m_arguments.first();
    m_pLogFile = std::make_unique<QFile>(m_logDirectory + QDir::separator() + baseName +
                                         QStringLiteral(".log"));
    m_pLogFile->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
    m_logStream.setDevice(m_pLogFile.get());
    QtVersion::setUtf8(m_logStream);
    logToFile(QStringLiteral("\n%1\n").arg(QDateTime::currentDateTime().toString(Qt::TextDate)));
}

// Text that cannot be written would accumulate in the stream for the rest of the run.
void common_ProcessRunnerBase::logToFile(const QString& text)
{
    if (m_logEnabled && m_pLogFile && m_pLogFile->isOpen() &&
        m_logStream.status() == QTextStream::Ok) {
        m_logStream << text;
    }
}

// Observers get values that were copied before the first call: one of them may start the next run.
void common_ProcessRunnerBase::notifyProcessStarted()
{
    callObservers([executable = m_executable,
                   arguments = m_arguments](common_IProcessRunnerObserver& observer) {
        observer.onProcessStarted(executable, arguments);
    });
}

void common_ProcessRunnerBase::notifyFailedProcessStarted()
{
    callObservers([executable = m_executable, arguments = m_arguments,
                   errorString = m_pProcess->errorString(),
                   code = exitCode()](common_IProcessRunnerObserver& observer) {
        observer.onExitCodeChanged(code);
        observer.onFailedProcessStarted(executable, arguments, errorString);
    });
}

void common_ProcessRunnerBase::notifyProcessMessageReceived(const common_IProcessMessage& message)
{
    if (!isReleased()) {
        callObservers([&message](common_IProcessRunnerObserver& observer) {
            observer.onProcessMessageReceived(message);
        });
    }
}

void common_ProcessRunnerBase::notifyProcessDone()
{
    callObservers([code = exitCode()](common_IProcessRunnerObserver& observer) {
        observer.onExitCodeChanged(code);
        observer.onProcessDone();
    });
}

void common_ProcessRunnerBase::assertNotRunning(int line) const
{
    COMMON_ASSERT_AT(m_pProcess->state() == QProcess::NotRunning,
                     "m_pProcess->state() == QProcess::NotRunning", sourceFile, line);
}

bool common_ProcessRunnerBase::startProcess()
{
    if (isRunning()) {
        qWarning("The process runner was not started: \"%s\" is still running.",
                 qUtf8Printable(m_executable));
        return false;
    }
    logProcessOutput();
    m_outputLines->clear();
    m_errorLines->clear();
    m_stopRequested = false;
    m_pProcess->start(m_executable, m_arguments, QIODevice::ReadWrite);
    if (!m_pProcess->waitForStarted(-1)) {
        notifyFailedProcessStarted();
        return false;
    }
    m_pProcess->closeWriteChannel(); // so that a child that reads its standard input gets its end
    hideConsole();
    notifyProcessStarted();
    return true;
}

// Reads all whole lines, however many arrived with one signal. An observer may run a nested event
// loop, in which more lines are read, or in which the run ends and another one begins.
void common_ProcessRunnerBase::readLines(common_LineBuffer& lines, int channel)
{
    m_pProcess->setReadChannel(static_cast<QProcess::ProcessChannel>(channel));
    lines.readFrom(*m_pProcess);
    while (!isReleased() && lines.hasLine()) {
        const QString line = lines.takePiece();
        if (channel == channelOutput) {
            onOutputRecieved(line);
        } else {
            onErrorRecieved(line);
        }
        logToFile(LineEnd::inTextMode(line));
    }
}

// When an observer has already started the next run, the files of that run are not deleted.
void common_ProcessRunnerBase::removeTemporaryFiles(const QVector<QFileInfo>& filesOfRun) const
{
    const bool nextRuns = isRunning();
    const QVector<QFileInfo> files = nextRuns ? filesOfRun : m_temporaryFiles;
    for (const QFileInfo& file : files) {
        if (!nextRuns || !m_temporaryFiles.contains(file)) {
            FileReplacement::remove(file.absoluteFilePath());
        }
    }
}

// Whether only the deliveries in progress still hold this object.
bool common_ProcessRunnerBase::isReleased() const
{
    return m_deliveryReferences > 0 && getRefCount() == m_deliveryReferences;
}

// A connection without an observer is an error of the caller here.
template <typename Call>
void common_ProcessRunnerBase::callObservers(Call call)
{
    notifyObservers(std::move(call), Strictness::Strict);
}
