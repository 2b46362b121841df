// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>
#include <common_IProcessRunnerObserver.h>
#include <common_ObserverOf.h>

#include <QStringList>

#include <functional>

/// Writes down what a process runner tells, and lets a test do something in every callback.
class RecordingObserver : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    explicit RecordingObserver(common_ObservableVia<common_IProcessRunnerObserver>* runner)
        : common_ObserverOf(runner)
    {}

    using common_ObserverOf::startObserving;
    using common_ObserverOf::stopObserving;

    void onProcessStarted(const QString& executable, const QStringList& arguments) override
    {
        record(QStringLiteral("started"));
        lastExecutable = executable;
        lastArguments = arguments;
    }

    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override
    {
        record(QStringLiteral("failed"));
        lastExecutable = executable;
        lastArguments = arguments;
        lastErrorString = errorString;
    }

    void onProcessMessageReceived(const common_IProcessMessage& message) override
    {
        texts[message.getType()].append(message.getText());
        record(QStringLiteral("message"));
    }

    void onProcessDone() override { record(QStringLiteral("done")); }

    void onExitCodeChanged(int exitCode) override
    {
        record(QStringLiteral("exit code %1").arg(exitCode));
    }

    /// What was told, without the messages.
    QStringList lifeCycle() const
    {
        QStringList result = events;
        result.removeAll(QStringLiteral("message"));
        return result;
    }

    QStringList events;
    QStringList texts[9]; // by message type
    QString lastExecutable;
    QStringList lastArguments;
    QString lastErrorString;
    std::function<void(const QString& event)> then = [](const QString&) {};

private:
    void record(const QString& event)
    {
        events.append(event);
        const auto callback = then; // may replace itself, or destroy this observer
        callback(event);
    }
};
