// SPDX-License-Identifier: MIT
#include "ParallelGuard.h"

#include <Descendants.h>

#include <array>
#include <cerrno>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int readSize = 1 << 16;

// Processes that have not found each other yet cannot take the end of their input as the request to
// end.
constexpr StopTimes stopTimesAtFirst = {300, 1500, 0};
constexpr StopTimes stopTimesLater = {1100, 1500, 600};

constexpr int leftoverTime = 200; // ms, after the end of mpiexec

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

// When mpiexec is killed while it starts, the processes that it has started on this machine wait
// for it for ever. They are in process groups of their own.
ParallelGuard::ParallelGuard()
    : m_input(STDIN_FILENO, QSocketNotifier::Read)
    , m_end({[this] { return m_process.isRunning(); }, [this] { terminate(); },
             [this] { m_process.killGroup(); }})
    , m_stopTimes(stopTimesAtFirst)
{
    Descendants::adoptOrphans();
    m_process.setInput(ChildProcess::Input::Written);
    m_process.setErrors(ChildProcess::Errors::Inherited);
    connect(&m_end, &StagedEnd::ended, this, [this] { finish(EXIT_FAILURE); });
    connect(&m_leftovers, &DescendantsEnding::ended, this, [this] { Q_EMIT finished(m_exitCode); });
    connect(&m_input, &QSocketNotifier::activated, this, &ParallelGuard::passOnInput);
    connect(&m_process, &ChildProcess::outputRead, this, &ParallelGuard::passOnOutput);
    connect(&m_process, &ChildProcess::ended, this, [this] {
        finish(m_process.startError().isEmpty() ? m_process.exitCode() : EXIT_FAILURE);
    });
}

void ParallelGuard::start(const QString& program, const QStringList& arguments)
{
    if (!m_process.start(program, arguments)) {
        std::fprintf(stderr, "mpikest: '%s' cannot be started\n", qPrintable(program));
    }
}

void ParallelGuard::stop()
{
    if (!m_end.isActive()) {
        m_input.setEnabled(false);
        m_process.closeInput();
        m_end.start(m_stopTimes);
    }
}

void ParallelGuard::passOnInput()
{
    std::array<char, readSize> bytes;
    const ssize_t size = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (size > 0) {
        m_process.write(QByteArray(bytes.data(), static_cast<int>(size)));
    } else if (size == 0 || errno != EINTR) {
        stop();
    }
}

// Without a reader everything ends.
void ParallelGuard::passOnOutput(const QByteArray& bytes)
{
    m_stopTimes = stopTimesLater;
    m_end.setTimes(m_stopTimes);
    if (!m_end.isActive() && !writeAll(bytes)) {
        stop();
    }
}

// Once: a second request makes mpiexec abort without waiting for its processes.
void ParallelGuard::terminate()
{
    if (!m_isTerminated) {
        m_isTerminated = true;
        m_process.terminateGroup();
    }
}

void ParallelGuard::finish(int exitCode)
{
    if (!m_isFinished) {
        m_isFinished = true;
        m_exitCode = exitCode;
        m_process.killGroup();
        m_leftovers.start(leftoverTime);
    }
}
