// SPDX-License-Identifier: MIT
#include "StopSignals.h"

#include <QMetaObject>
#include <QMutex>
#include <QObject>

#include <csignal>
#include <utility>

#include <windows.h>

namespace {

/// Handles the console's requests while it lives.
class Watch : public QObject
{
public:
    Watch(std::function<void(int)> onStop, QObject* receiver);
    ~Watch() override;

    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    static BOOL WINAPI passOn(DWORD event);

private:
    std::function<void(int)> m_onStop;
    Watch* m_before;
};

// The console calls in a thread of its own, and knows functions only.
QMutex watchLock;
Watch* newestWatch = nullptr;

Watch::Watch(std::function<void(int)> onStop, QObject* receiver)
    : QObject(receiver), m_onStop(std::move(onStop))
{
    const QMutexLocker lock(&watchLock);
    m_before = std::exchange(newestWatch, this);
    if (!m_before) {
        SetConsoleCtrlHandler(passOn, TRUE);
    }
}

Watch::~Watch()
{
    const QMutexLocker lock(&watchLock);
    newestWatch = m_before;
    if (!newestWatch) {
        SetConsoleCtrlHandler(passOn, FALSE);
    }
}

// The system ends the program as soon as this function returns from one of these events, or after
// some seconds: the other threads have this time to end it themselves.
[[noreturn]] void waitForTheEnd()
{
    while (true) {
        Sleep(INFINITE);
    }
}

bool isEndOfConsole(DWORD event)
{
    return event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT;
}

BOOL WINAPI Watch::passOn(DWORD event)
{
    const int number = event == CTRL_C_EVENT ? SIGINT : SIGTERM;
    bool isPassedOn = false;
    {
        const QMutexLocker lock(&watchLock);
        Watch* const watch = newestWatch;
        isPassedOn =
            watch && QMetaObject::invokeMethod(
                         watch, [watch, number] { watch->m_onStop(number); }, Qt::QueuedConnection);
    }
    if (isPassedOn && isEndOfConsole(event)) {
        waitForTheEnd();
    }
    return isPassedOn;
}

} // namespace

void StopSignals::watch(QObject* receiver, const std::function<void(int)>& onStop)
{
    new Watch(onStop, receiver);
}

void StopSignals::renew()
{
    const QMutexLocker lock(&watchLock);
    if (newestWatch) {
        SetConsoleCtrlHandler(Watch::passOn, FALSE);
        SetConsoleCtrlHandler(Watch::passOn, TRUE);
    }
}
