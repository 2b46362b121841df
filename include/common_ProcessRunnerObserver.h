// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessRunnerObserver.h>
#include <common_ObserverOf.h>
#include <kest_common_export.h>

#include <functional>

/// An observer of a process runner that calls a function for each notification that one is set for,
/// and ignores the others.
///
/// Set functions, or derive and override the operations of interest; an override replaces the
/// function of its notification. A function may set functions of this observer and destroy it, but
/// see common_IProcessRunnerObserver::onExitCodeChanged().
class KEST_COMMON_EXPORT common_ProcessRunnerObserver
    : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    /// Called with the program and its arguments.
    using StartedFunction =
        std::function<void(const QString& executable, const QStringList& arguments)>;
    /// Called with the program, its arguments and the reason.
    using FailedFunction = std::function<void(
        const QString& executable, const QStringList& arguments, const QString& errorString)>;
    /// Called with each message.
    using MessageFunction = std::function<void(const common_IProcessMessage& message)>;
    /// Called at the end of a run.
    using DoneFunction = std::function<void()>;
    /// Called with the exit code.
    using ExitCodeFunction = std::function<void(int exitCode)>;

    /// Observes the runner from now on; null means not observing. The runner is not owned, and
    /// either of the two may be destroyed first.
    explicit common_ProcessRunnerObserver(
        common_ObservableVia<common_IProcessRunnerObserver>* runner = nullptr);

    /// Functions may refer to the observer that they were set for.
    common_ProcessRunnerObserver(const common_ProcessRunnerObserver&) = delete;
    common_ProcessRunnerObserver& operator=(const common_ProcessRunnerObserver&) = delete;

    ~common_ProcessRunnerObserver() override;

    using common_ObserverOf::startObserving;
    using common_ObserverOf::stopObserving;

    // Each sets the function for one notification, in place of the previous one; an empty function
    // ignores the notification. They return this observer, so that calls can be chained.

    /// After the child has been started.
    common_ProcessRunnerObserver& setStartedFunction(StartedFunction function);
    /// When the child could not be started.
    common_ProcessRunnerObserver& setFailedFunction(FailedFunction function);

    /// The message is valid during the call only.
    common_ProcessRunnerObserver& setMessageFunction(MessageFunction function);

    /// Called at the end of a run whose child has started.
    common_ProcessRunnerObserver& setDoneFunction(DoneFunction function);

    /// Called just before the function for the end or for the failed start. After a failed start
    /// the exit code means nothing.
    common_ProcessRunnerObserver& setExitCodeFunction(ExitCodeFunction function);

    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

private:
    StartedFunction m_started;
    FailedFunction m_failed;
    MessageFunction m_message;
    DoneFunction m_done;
    ExitCodeFunction m_exitCode;
};
