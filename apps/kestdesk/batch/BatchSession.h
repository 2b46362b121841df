#pragma once

#include "BatchReport.h"
#include "Run.h"
#include "RunArchive.h"
#include "RunForecast.h"
#include "RunRecorder.h"
#include "Shutdown.h"

#include <common_CommonSettingsSet.h>
#include <common_RunWrapper.h>

#include <QJsonArray>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <memory>
#include <optional>

struct Component;

/// Runs a component on one model after the other, until all are done or the user stops it.
class BatchSession : public QObject
{
    Q_OBJECT

public:
    /// With the user's launch options. The component must outlive the session.
    BatchSession(const Component& component, common_RunWrapper::RunOptions options,
                 QStringList models);
    ~BatchSession() override;

    /// Runs the model as that run was started, instead of as the launch options say now. To be
    /// called before exec().
    void repeat(const RunRecord& record) { m_repeated = record; }

    /// Shows the runs on standard error, and writes their records as one JSON object to standard
    /// output at the end. To be called before exec().
    void setJson(bool isJson);

    /// The application's exit code: 0 all valid, 1 a fault, 2 a start that failed, 130 stopped.
    int exec();

private:
    void runNext();
    void startRun();
    void makeRecorder();
    void onRunEnded();
    void onRecorded();
    void onStopRequested();
    void leave();
    RunSetup::Readiness setUp();
    void keepRecord();
    void writeJson() const;
    int exitCode() const;

    const Component& m_component;
    common_RunWrapper::RunOptions m_options;
    QStringList m_models;
    std::optional<RunRecord> m_repeated;
    bool m_isJson = false;
    QJsonArray m_records; ///< of the runs that have ended
    common_CommonSettingsSet m_settings;
    RunArchive m_archive;
    RunArchive::Limits m_limits;
    QVector<RunOutcome::Kind> m_outcomes;
    BatchReport m_report;
    std::unique_ptr<Run> m_run;
    std::unique_ptr<RunForecast> m_forecast; ///< of the run
    std::unique_ptr<RunRecorder> m_recorder; ///< of the run
    QTimer m_recordingTime;                  ///< runs while a run has ended, but not its record
    Shutdown m_shutdown;
};
