// SPDX-License-Identifier: MIT
#include "StopSignals.h"

#include "Pipe.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <unistd.h>

namespace {

constexpr std::array<int, 3> stopSignals = {SIGINT, SIGTERM, SIGHUP};

// A handler reaches nothing but what is global: the pipe that it writes to, and whose it is.
std::atomic<int> handlersPipe = {-1};
std::atomic<pid_t> handlersProcess = {0};
static_assert(std::atomic<int>::is_always_lock_free);

// A new process has this handler until its program begins: the request is its own then, and its
// parent, which has the same pipe, is not meant.
void passOn(int number)
{
    const int error = errno;
    if (::getpid() == handlersProcess) {
        const auto byte = static_cast<char>(number);
        [[maybe_unused]] const ssize_t written = ::write(handlersPipe, &byte, 1);
    } else {
        std::signal(number, SIG_DFL);
        std::raise(number);
    }
    errno = error;
}

/// Handles the signals while it lives.
class Watch : public QObject
{
public:
    Watch(Pipe pipe, std::function<void(int)> onStop, QObject* receiver);
    ~Watch() override;

    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

private:
    void handle(std::size_t row);
    void read();

    Pipe m_pipe;
    std::function<void(int)> m_onStop;
    QSocketNotifier m_notifier;
    int m_pipeBefore;
    std::array<struct sigaction, stopSignals.size()> m_before = {};
};

Watch::Watch(Pipe pipe, std::function<void(int)> onStop, QObject* receiver)
    : QObject(receiver)
    , m_pipe(std::move(pipe))
    , m_onStop(std::move(onStop))
    , m_notifier(m_pipe.readEnd.number(), QSocketNotifier::Read)
{
    m_pipe.readEnd.setNonBlocking();
    m_pipe.writeEnd.setNonBlocking();
    connect(&m_notifier, &QSocketNotifier::activated, this, &Watch::read);
    handlersProcess = ::getpid();
    m_pipeBefore = handlersPipe.exchange(m_pipe.writeEnd.number());
    for (std::size_t row = 0; row < stopSignals.size(); ++row) {
        handle(row);
    }
}

Watch::~Watch()
{
    for (std::size_t row = 0; row < stopSignals.size(); ++row) {
        ::sigaction(stopSignals[row], &m_before[row], nullptr);
    }
    handlersPipe = m_pipeBefore;
}

void Watch::handle(std::size_t row)
{
    const int number = stopSignals[row];
    ::sigaction(number, nullptr, &m_before[row]);
    if (number == SIGHUP && m_before[row].sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action = {};
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(number, &action, nullptr);
}

void Watch::read()
{
    char number = 0;
    if (::read(m_pipe.readEnd.number(), &number, 1) == 1) {
        m_onStop(number);
    }
}

} // namespace

// Without a pipe the signals keep ending the program at once.
void StopSignals::watch(QObject* receiver, const std::function<void(int)>& onStop)
{
    if (std::optional<Pipe> pipe = Pipe::make()) {
        new Watch(std::move(*pipe), onStop, receiver);
    }
}

void StopSignals::renew()
{}
