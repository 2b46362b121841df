#pragma once

#include "BatchReport.h"
#include "BatchRunner.h"
#include "Component.h"
#include "RunSetup.h"

#include <common_ActivePtr.h>
#include <common_ObserverOf.h>

#include <functional>

class common_CommonSettingsSet;

/// One run of a component on one model, reported as it goes.
class BatchRun : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    using Finished = std::function<void(RunOutcome::Kind)>;

    /// The report is not owned. The callback comes once, when start() has begun.
    BatchRun(BatchReport& report, Finished finished);

    /// The settings name the user's launch options.
    void start(const Component& component, common_RunWrapper::RunOptions options,
               const QString& model, common_CommonSettingsSet& settings);

    /// Asks the component to stop.
    void stop();

    /// Kills the component and all that it started.
    void kill();

    /// Reports a component that cannot be killed as stopped and waits for it no longer. Nothing
    /// when it has ended.
    void giveUp();

    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

private:
    QString complaint(const RunSetup::Readiness& readiness) const;
    void run();
    void refuse(const QString& reason);
    void finish(const RunOutcome& outcome);

    BatchReport& m_report;
    Finished m_finished;
    common_ActivePtr<BatchRunner> m_runner;
    QString m_component;
};
