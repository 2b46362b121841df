// SPDX-License-Identifier: MIT
#pragma once

#include "BatchReport.h"
#include "BatchRun.h"
#include "DiskThread.h"
#include "KeptConsole.h"
#include "RunQueue.h"
#include "Shutdown.h"

#include <common_CommonSettingsSet.h>

#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

/// Runs a component on models, one after the other or several at once, until all are done or the
/// user stops the session.
class BatchSession : public QObject
{
    Q_OBJECT

public:
    /// Uses the user's launch options. The component must outlive the session.
    BatchSession(const Component& component, common_RunWrapper::RunOptions options,
                 QStringList models);
    ~BatchSession() override;

    /// Sets the number of simultaneous runs, 1 or more; runs of one model are never simultaneous.
    /// To be called before exec().
    void setJobs(int jobs);

    /// Repeats that run exactly, instead of using the launch options. To be called before exec().
    void repeat(const RunRecord& record) { m_setting.repeated = record; }

    /// If true, shows the runs on standard error and writes their records as one JSON object to
    /// standard output at the end. To be called before exec().
    void setJson(bool isJson);

    /// The application's exit code: 0 all valid, 1 a fault, 2 a start that failed, 130 stopped.
    int exec();

private:
    void closeInterruptedRecords();
    void queueModels();
    void start(const QueuedRun& queued);
    void onFinished(const QueuedRun& queued);
    void onStopRequested();
    void leave();
    std::vector<BatchReport::Result> results() const;
    void writeJson() const;
    int exitCode() const;

    QStringList m_models;
    bool m_isJson = false;
    common_CommonSettingsSet m_settings;
    BatchSetting m_setting;
    KeptConsole m_console;
    BatchReport m_report;
    Shutdown m_shutdown;
    RunQueue m_queue;
    int m_finishedCount = 0;
    std::vector<std::unique_ptr<BatchRun>> m_runs; ///< by model; null if it has not begun
    DiskThread m_disk;                             ///< the first to go
};
