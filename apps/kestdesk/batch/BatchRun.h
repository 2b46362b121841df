// SPDX-License-Identifier: MIT
#pragma once

#include "Run.h"
#include "RunArchive.h"
#include "RunForecast.h"
#include "RunRecorder.h"

#include <QJsonObject>
#include <QObject>
#include <QTimer>

#include <optional>

struct Component;

/// The common settings of the runs of a batch.
struct BatchSetting
{
    const Component& component;
    common_RunWrapper::RunOptions options;
    RunArchive archive;
    RunArchive::Limits limits;

    /// The record to repeat exactly, instead of a set-up with the launch options.
    std::optional<RunRecord> repeated;
};

/// One model of a batch: its run, the forecast of its remaining time, and its record.
class BatchRun : public QObject
{
    Q_OBJECT

public:
    /// The setting must outlive this object.
    BatchRun(const BatchSetting& setting, const QString& model);

    Run& run() { return m_run; }
    const Run& run() const { return m_run; }
    const RunForecast& forecast() const { return m_forecast; }

    /// Number of the record; 0 without one.
    int number() const { return m_recorder.number(); }

    /// Sets the run up and starts or refuses it.
    void start(common_CommonSettingsSet& settings);

    /// The record as JSON. Without a record, the facts that are known.
    QJsonObject toJson() const;

Q_SIGNALS:
    /// The record is not complete. The reason is a clause.
    void recordFailed(const QString& reason);

    /// The run has ended, and its record is complete or has timed out. Emitted once.
    void finished();

private:
    void onEnded();
    void finish();

    const BatchSetting& m_setting;
    Run m_run;
    RunForecast m_forecast;
    RunRecorder m_recorder;
    QTimer m_recordingTime; ///< active between the end of the run and that of its record
    bool m_isFinished = false;
};
