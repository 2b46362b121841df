#pragma once

#include "BatchReport.h"
#include "Run.h"
#include "Shutdown.h"

#include <common_CommonSettingsSet.h>
#include <common_RunWrapper.h>

#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

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

    /// The application's exit code: 0 all valid, 1 a fault, 2 a start that failed, 130 stopped.
    int exec();

private:
    void runNext();
    void startRun();
    void onRunEnded();
    void onStopRequested();
    void leave();
    int exitCode() const;

    const Component& m_component;
    common_RunWrapper::RunOptions m_options;
    QStringList m_models;
    common_CommonSettingsSet m_settings;
    QVector<RunOutcome::Kind> m_outcomes;
    BatchReport m_report;
    std::unique_ptr<Run> m_run;
    Shutdown m_shutdown;
};
