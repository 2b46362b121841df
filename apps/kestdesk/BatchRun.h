#ifndef BATCHRUN_H
#define BATCHRUN_H

#include "BatchReport.h"

#include <common_ActivePtr.h>
#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>

#include <functional>

/// One run of a component on one model, reported as it goes.
class BatchRun : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    using Finished = std::function<void(Outcome)>;

    /// The report is not owned. The callback comes once, when start() has begun.
    BatchRun(BatchReport& report, Finished finished);

    void start(const QString& component, const QString& model);

    /// Asks the component to stop.
    void stop();

    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

private:
    using Runner = common_ProcessRunner<common_KestProcessMessage>;

    void refuse(const QString& reason);
    void finish(Outcome outcome);

    BatchReport& m_report;
    Finished m_finished;
    common_ActivePtr<Runner> m_runner;
    bool m_stopRequested = false;
};

#endif
