// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include "ConsoleBreak.h"

#include <QProcess>
#include <QStandardPaths>
#include <QThread>

#include <windows.h>

#include <tlhelp32.h>

namespace {

// What QProcess takes for a crash.
constexpr UINT killedCode = 0xF291;

struct Priority
{
    int leastNiceValue;
    DWORD priorityClass;
};

// From the lowest priority on.
constexpr Priority priorities[] = {{15, IDLE_PRIORITY_CLASS},
                                   {5, BELOW_NORMAL_PRIORITY_CLASS},
                                   {-4, NORMAL_PRIORITY_CLASS},
                                   {-9, ABOVE_NORMAL_PRIORITY_CLASS},
                                   {-20, HIGH_PRIORITY_CLASS}};

DWORD priorityClass(int niceValue)
{
    for (const Priority& priority : priorities) {
        if (niceValue >= priority.leastNiceValue) {
            return priority.priorityClass;
        }
    }
    return HIGH_PRIORITY_CLASS;
}

// A process that was created suspended has one thread.
void resume(DWORD process)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == process) {
            const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, entry.th32ThreadID);
            ResumeThread(thread);
            CloseHandle(thread);
        }
    }
    CloseHandle(snapshot);
}

} // namespace

/// The process, in a job of its own: its descendants are in it, too.
class ChildProcess::Process : public QProcess
{
public:
    explicit Process(ChildProcess& owner);
    ~Process() override { CloseHandle(m_job); }

    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// False when the program cannot be started.
    bool start(const QStringList& words);

    void killJob() const { TerminateJobObject(m_job, killedCode); }
    [[nodiscard]] bool isJobAlive() const;

private:
    void setChannels();
    bool startSuspended(const QStringList& words);
    void enterJob() const;

    ChildProcess& m_owner;
    HANDLE m_job;
};

ChildProcess::Process::Process(ChildProcess& owner)
    : m_owner(owner), m_job(CreateJobObjectW(nullptr, nullptr))
{
    QObject::connect(this, &QProcess::readyReadStandardOutput, &m_owner,
                     [this] { Q_EMIT m_owner.outputRead(readAllStandardOutput()); });
    QObject::connect(this, &QProcess::readyReadStandardError, &m_owner,
                     [this] { Q_EMIT m_owner.errorsRead(readAllStandardError()); });
    QObject::connect(this, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &m_owner,
                     [this](int exitCode, QProcess::ExitStatus status) {
                         m_owner.m_exitCode = exitCode;
                         m_owner.m_hasExited = status == QProcess::NormalExit;
                         Q_EMIT m_owner.ended();
                     });
}

void ChildProcess::Process::setChannels()
{
    const Setup& setup = m_owner.m_setup;
    setWorkingDirectory(setup.folder);
    if (setup.input == Input::None) {
        setStandardInputFile(QProcess::nullDevice());
    }
    if (setup.errors != Errors::Read) {
        setProcessChannelMode(setup.errors == Errors::WithOutput ? QProcess::MergedChannels
                                                                 : QProcess::ForwardedErrorChannel);
    }
}

// Suspended until it is in its job, so that it starts no process outside.
bool ChildProcess::Process::start(const QStringList& words)
{
    setChannels();
    const DWORD priority = priorityClass(m_owner.m_setup.niceValue.value_or(0));
    ConsoleBreak::prepare(*this);
    const CreateProcessArgumentModifier makeGroup = createProcessArgumentsModifier();
    setCreateProcessArgumentsModifier(
        [priority, makeGroup](QProcess::CreateProcessArguments* arguments) {
            makeGroup(arguments);
            arguments->flags |= CREATE_SUSPENDED | priority;
        });
    if (!startSuspended(words)) {
        return false;
    }
    enterJob();
    resume(static_cast<DWORD>(processId()));
    return true;
}

// Sweeps start thousands of processes. Now and then the system refuses one for a reason that
// passes, such as a virus scanner that has the program's file open.
bool ChildProcess::Process::startSuspended(const QStringList& words)
{
    constexpr int attempts = 4;
    constexpr unsigned long pause = 25; // ms
    for (int attempt = 1;; ++attempt) {
        QProcess::start(words.first(), words.mid(1));
        if (waitForStarted(-1)) {
            return true;
        }
        if (attempt == attempts || QStandardPaths::findExecutable(words.first()).isEmpty()) {
            return false;
        }
        QThread::msleep(pause);
    }
}

void ChildProcess::Process::enterJob() const
{
    if (!m_owner.m_setup.isLeftRunningAtExit) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(m_job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }
    const HANDLE process =
        OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(processId()));
    AssignProcessToJobObject(m_job, process);
    CloseHandle(process);
}

bool ChildProcess::Process::isJobAlive() const
{
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts = {};
    return QueryInformationJobObject(m_job, JobObjectBasicAccountingInformation, &counts,
                                     sizeof counts, nullptr) != 0 &&
           counts.ActiveProcesses > 0;
}

ChildProcess::ChildProcess(QObject* parent)
    : QObject(parent), m_process(std::make_unique<Process>(*this))
{}

// Nothing is reported any more: the receivers may be half destroyed.
ChildProcess::~ChildProcess()
{
    m_process->disconnect(this);
    if (isRunning()) {
        m_process->killJob();
        m_process->kill();
        m_process->waitForFinished();
    }
}

bool ChildProcess::start(const QString& program, const QStringList& arguments)
{
    m_program = program;
    const bool isStarted = m_process->start(QStringList(program) + arguments);
    if (!isStarted) {
        m_startError = m_process->errorString();
        QMetaObject::invokeMethod(this, &ChildProcess::ended, Qt::QueuedConnection);
    }
    return isStarted;
}

bool ChildProcess::isRunning() const
{
    return m_process->state() != QProcess::NotRunning;
}

void ChildProcess::write(const QByteArray& bytes)
{
    m_process->write(bytes);
}

void ChildProcess::closeInput()
{
    m_process->closeWriteChannel();
}

void ChildProcess::terminateGroup() const
{
    ConsoleBreak::send(m_process->processId());
}

void ChildProcess::killGroup() const
{
    m_process->killJob();
}

bool ChildProcess::isGroupAlive() const
{
    return m_process->isJobAlive();
}
