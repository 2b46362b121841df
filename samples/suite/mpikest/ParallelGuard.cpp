#include "ParallelGuard.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include <unistd.h>

using namespace suite;

namespace {

constexpr int readSize = 1 << 16;
constexpr int watchInterval = 10; // ms

// What is done to processes that do not end, in ms after the request. Those that have not found
// each other yet cannot hear the request.
struct StopStep
{
    int time;
    int timeBeforeStart;
    int signal;
};
constexpr StopStep stopSteps[] = {{600, 0, SIGTERM}, {1100, 300, SIGKILL}};
constexpr int givingUp = 1500; // ms

bool writeAll(const QByteArray& bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const ssize_t size = ::write(STDOUT_FILENO, bytes.constData() + written,
                                     static_cast<std::size_t>(bytes.size() - written));
        if (size < 0 && errno != EINTR) {
            return false;
        }
        written += qMax<ssize_t>(0, size);
    }
    return true;
}

} // namespace

ParallelGuard::ParallelGuard() : m_input(STDIN_FILENO, QSocketNotifier::Read)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_endWatch.setInterval(watchInterval);
    connect(&m_endWatch, &QTimer::timeout, this, &ParallelGuard::watchEnd);
    connect(&m_input, &QSocketNotifier::activated, this, &ParallelGuard::passOnInput);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &ParallelGuard::passOnOutput);
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this](int exitCode) { finish(exitCode); });
    connect(
        &m_process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                std::fprintf(stderr, "mpikest: '%s' cannot be started\n",
                             qPrintable(m_process.program()));
                finish(EXIT_FAILURE);
            }
        },
        Qt::QueuedConnection);
}

void ParallelGuard::start(const QString& program, const QStringList& arguments)
{
    m_process.startInGroup(program, arguments);
}

void ParallelGuard::stop()
{
    if (!m_clock.isValid()) {
        m_input.setEnabled(false);
        m_process.closeWriteChannel();
        m_clock.start();
        m_endWatch.start();
    }
}

void ParallelGuard::passOnInput()
{
    std::array<char, readSize> bytes;
    const ssize_t size = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (size > 0) {
        m_process.write(bytes.data(), size);
    } else if (size == 0 || errno != EINTR) {
        stop();
    }
}

// Without a reader everything ends.
void ParallelGuard::passOnOutput()
{
    m_hasPrinted = true;
    const QByteArray bytes = m_process.readAllStandardOutput();
    if (!m_clock.isValid() && !writeAll(bytes)) {
        stop();
    }
}

void ParallelGuard::watchEnd()
{
    const qint64 elapsed = m_clock.elapsed();
    if (elapsed >= givingUp) {
        finish(EXIT_FAILURE);
    } else if (m_step < std::size(stopSteps)) {
        const StopStep& step = stopSteps[m_step];
        if (elapsed >= (m_hasPrinted ? step.time : step.timeBeforeStart)) {
            ++m_step;
            m_process.signalGroup(step.signal);
        }
    }
}

void ParallelGuard::finish(int exitCode)
{
    if (!m_isFinished) {
        m_isFinished = true;
        m_process.signalGroup(SIGKILL);
        Q_EMIT finished(exitCode);
    }
}
