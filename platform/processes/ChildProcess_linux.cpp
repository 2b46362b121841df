// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include "PipeReader.h"
#include "PipeWriter.h"
#include "ProgramStart.h"
#include "WriteFailures.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int pollInterval = 10;       // ms, where the system does not report the end of a process
constexpr int killLimit = 2000;        // ms; a process that waits for a device cannot be killed
constexpr unsigned long killPause = 1; // ms

// Readable when the process has ended.
Descriptor endOf(pid_t process)
{
    return Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

// Leaves the process in the system's list, where its number is not given to another one.
bool hasEnded(pid_t process)
{
    siginfo_t info = {};
    const int result =
        ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT);
    return result == 0 ? info.si_pid == process : errno != EINTR;
}

} // namespace

class ChildProcess::Process
{
public:
    explicit Process(ChildProcess& owner) : m_owner(owner) {}

    /// Zero, or the number of the error.
    int start(const QStringList& words);

    [[nodiscard]] bool isRunning() const { return m_id > 0; }
    [[nodiscard]] PipeWriter* input() const { return m_input.get(); }

    /// True when there is such a group.
    bool signalGroup(int number) const { return m_group > 0 && ::kill(-m_group, number) == 0; }

    /// Kills the group and waits for the process's end.
    void kill();

private:
    struct Channels ///< the ends of the pipes that the new process gets
    {
        Descriptor input;
        Descriptor output;
        Descriptor errors;
    };

    bool open(Channels& channels);
    bool openInput(Descriptor& farEnd);
    bool openOutput(Descriptor& farEnd, std::unique_ptr<PipeReader>& reader,
                    void (ChildProcess::*tell)(const QByteArray&));
    void watchEnd();
    void look();
    void takeExitCode();

    ChildProcess& m_owner;
    pid_t m_id = 0;
    pid_t m_group = 0;
    std::unique_ptr<PipeWriter> m_input;
    std::unique_ptr<PipeReader> m_output;
    std::unique_ptr<PipeReader> m_errors;
    Descriptor m_end;
    std::unique_ptr<QSocketNotifier> m_endNotifier;
    QTimer m_endPoll;
};

int ChildProcess::Process::start(const QStringList& words)
{
    const Setup& setup = m_owner.m_setup;
    Channels channels;
    if (!open(channels)) {
        return errno;
    }
    ProgramStart start;
    for (const QString& word : words) {
        start.words.append(QFile::encodeName(word));
    }
    start.folder = QFile::encodeName(setup.folder);
    start.channels = {channels.input.number(), channels.output.number(), channels.errors.number()};
    if (setup.errors == Errors::WithOutput) {
        start.channels[STDERR_FILENO] = channels.output.number();
    }
    start.group =
        setup.terminal == Terminal::None ? ProgramStart::Group::Session : ProgramStart::Group::Own;
    start.deathSignal = setup.isLeftRunningAtExit ? 0 : SIGKILL;
    start.niceValue = setup.niceValue;
    const ProgramStart::Result result = start.start();
    if (result.error == 0) {
        m_id = static_cast<pid_t>(result.process);
        m_group = m_id;
        watchEnd();
    }
    return result.error;
}

bool ChildProcess::Process::open(Channels& channels)
{
    return openInput(channels.input) &&
           openOutput(channels.output, m_output, &ChildProcess::outputRead) &&
           (m_owner.m_setup.errors != Errors::Read ||
            openOutput(channels.errors, m_errors, &ChildProcess::errorsRead));
}

bool ChildProcess::Process::openInput(Descriptor& farEnd)
{
    if (m_owner.m_setup.input == Input::None) {
        farEnd = Descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
        return farEnd.isOpen();
    }
    std::optional<Pipe> pipe = Pipe::make();
    if (!pipe) {
        return false;
    }
    WriteFailures::report();
    farEnd = std::move(pipe->readEnd);
    m_input = std::make_unique<PipeWriter>(std::move(pipe->writeEnd));
    return true;
}

bool ChildProcess::Process::openOutput(Descriptor& farEnd, std::unique_ptr<PipeReader>& reader,
                                       void (ChildProcess::*tell)(const QByteArray&))
{
    std::optional<Pipe> pipe = Pipe::make();
    if (!pipe) {
        return false;
    }
    farEnd = std::move(pipe->writeEnd);
    reader = std::make_unique<PipeReader>(std::move(pipe->readEnd));
    QObject::connect(reader.get(), &PipeReader::bytesRead, &m_owner, tell);
    return true;
}

void ChildProcess::Process::watchEnd()
{
    m_end = endOf(m_id);
    if (m_end.isOpen()) {
        m_endNotifier = std::make_unique<QSocketNotifier>(m_end.number(), QSocketNotifier::Read);
        QObject::connect(m_endNotifier.get(), &QSocketNotifier::activated, &m_owner,
                         [this] { look(); });
    } else {
        QObject::connect(&m_endPoll, &QTimer::timeout, &m_owner, [this] { look(); });
        m_endPoll.start(pollInterval);
    }
}

void ChildProcess::Process::look()
{
    if (m_id == 0 || !hasEnded(m_id)) {
        return;
    }
    m_endPoll.stop();
    if (m_endNotifier) {
        m_endNotifier->setEnabled(false);
    }
    for (const std::unique_ptr<PipeReader>* reader : {&m_output, &m_errors}) {
        if (*reader) {
            (*reader)->finish();
        }
    }
    takeExitCode();
    Q_EMIT m_owner.ended();
}

void ChildProcess::Process::takeExitCode()
{
    int status = 0;
    const bool isKnown = ::waitpid(m_id, &status, 0) == m_id;
    m_id = 0;
    m_owner.m_hasExited = isKnown && WIFEXITED(status);
    m_owner.m_exitCode = m_owner.m_hasExited ? WEXITSTATUS(status) : WTERMSIG(status);
}

void ChildProcess::Process::kill()
{
    signalGroup(SIGKILL);
    const QDeadlineTimer limit(killLimit);
    while (!hasEnded(m_id) && !limit.hasExpired()) {
        QThread::msleep(killPause);
    }
    ::waitpid(m_id, nullptr, WNOHANG);
    m_id = 0;
}

ChildProcess::ChildProcess(QObject* parent)
    : QObject(parent), m_process(std::make_unique<Process>(*this))
{}

ChildProcess::~ChildProcess()
{
    if (isRunning()) {
        m_process->kill();
    }
}

bool ChildProcess::start(const QString& program, const QStringList& arguments)
{
    m_program = program;
    const int error = m_process->start(QStringList(program) + arguments);
    if (error != 0) {
        m_startError = QString::fromLocal8Bit(std::strerror(error));
        QMetaObject::invokeMethod(this, &ChildProcess::ended, Qt::QueuedConnection);
    }
    return error == 0;
}

bool ChildProcess::isRunning() const
{
    return m_process->isRunning();
}

void ChildProcess::write(const QByteArray& bytes)
{
    if (m_process->input()) {
        m_process->input()->write(bytes);
    }
}

void ChildProcess::closeInput()
{
    if (m_process->input()) {
        m_process->input()->close();
    }
}

void ChildProcess::terminateGroup() const
{
    m_process->signalGroup(SIGTERM);
}

void ChildProcess::killGroup() const
{
    m_process->signalGroup(SIGKILL);
}

bool ChildProcess::isGroupAlive() const
{
    return m_process->signalGroup(0);
}
