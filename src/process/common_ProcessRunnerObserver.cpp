// SPDX-License-Identifier: MIT
#include <common_ProcessRunnerObserver.h>

#include <common_IProcessMessage.h>

#include <QString>
#include <QStringList>

#include <utility>

namespace {

// Calls a copy: the function may replace itself, or destroy the observer that holds it.
template <typename Function, typename... Arguments>
void call(Function function, const Arguments&... arguments)
{
    if (function) {
        function(arguments...);
    }
}

} // namespace

common_ProcessRunnerObserver::common_ProcessRunnerObserver(
    common_ObservableVia<common_IProcessRunnerObserver>* runner)
    : common_ObserverOf(runner)
{}

common_ProcessRunnerObserver::~common_ProcessRunnerObserver() = default;

common_ProcessRunnerObserver&
common_ProcessRunnerObserver::setStartedFunction(StartedFunction function)
{
    m_started = std::move(function);
    return *this;
}

common_ProcessRunnerObserver&
common_ProcessRunnerObserver::setFailedFunction(FailedFunction function)
{
    m_failed = std::move(function);
    return *this;
}

common_ProcessRunnerObserver&
common_ProcessRunnerObserver::setMessageFunction(MessageFunction function)
{
    m_message = std::move(function);
    return *this;
}

common_ProcessRunnerObserver& common_ProcessRunnerObserver::setDoneFunction(DoneFunction function)
{
    m_done = std::move(function);
    return *this;
}

common_ProcessRunnerObserver&
common_ProcessRunnerObserver::setExitCodeFunction(ExitCodeFunction function)
{
    m_exitCode = std::move(function);
    return *this;
}

void common_ProcessRunnerObserver::onProcessStarted(const QString& executable,
                                                    const QStringList& arguments)
{
    call(m_started, executable, arguments);
}

void common_ProcessRunnerObserver::onFailedProcessStarted(const QString& executable,
                                                          const QStringList& arguments,
                                                          const QString& errorString)
{
    call(m_failed, executable, arguments, errorString);
}

void common_ProcessRunnerObserver::onProcessMessageReceived(const common_IProcessMessage& message)
{
    call(m_message, message);
}

void common_ProcessRunnerObserver::onProcessDone()
{
    call(m_done);
}

void common_ProcessRunnerObserver::onExitCodeChanged(int exitCode)
{
    call(m_exitCode, exitCode);
}
