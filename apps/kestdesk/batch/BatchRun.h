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

/// What the runs of a batch have in common.
struct BatchSetting
{
    const Component& component;
    common_RunWrapper::RunOptions options;
    RunArchive archive;
    RunArchive::Limits limits;

    /// The run that they repeat exactly, instead of being set up as the launch options say.
    std::optional<RunRecord> repeated;
};

/// One model of a batch: its run, how long that still takes, and its record.
class BatchRun : public QObject
{
    Q_OBJECT

public:
    /// The setting must outlive this.
    BatchRun(const BatchSetting& setting, const QString& model);

    Run& run() { return m_run; }
    const Run& run() const { return m_run; }
    const RunForecast& forecast() const { return m_forecast; }

    /// Of the record; 0 without one.
    int number() const { return m_recorder.number(); }

    /// Sets the run up and starts or refuses it.
    void start(common_CommonSettingsSet& settings);

    /// The record; where the archive has none, what is known without it.
    QJsonObject toJson() const;

Q_SIGNALS:
    /// The record is not complete, for that reason, a clause.
    void recordFailed(const QString& reason);

    /// The run has ended, and its record is complete or takes too long for that. Comes once.
    void finished();

private:
    void onEnded();
    void finish();

    const BatchSetting& m_setting;
    Run m_run;
    RunForecast m_forecast;
    RunRecorder m_recorder;
    QTimer m_recordingTime; ///< runs while the run has ended, but not its record
    bool m_isFinished = false;
};
