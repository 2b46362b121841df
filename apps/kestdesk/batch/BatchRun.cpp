// SPDX-License-Identifier: MIT
#include "BatchRun.h"

#include "Component.h"
#include "RecordedRun.h"
#include "RunFacts.h"

#include <QFileInfo>

#include <utility>

namespace {

constexpr int longestRecording = 5000; // milliseconds that the end of a record may take

const QString useLocal = QStringLiteral("\"kestdesk machines use-local\"");

// Why a component is not started, and how to solve the problem in a terminal.
QString problemText(const RunSetup::Readiness& readiness, const QString& component)
{
    switch (readiness.obstacle) {
    case RunSetup::Obstacle::Shown:
        return QStringLiteral("%1 was not started").arg(component);
    case RunSetup::Obstacle::NoFile:
        return QStringLiteral(
                   "%1 was not started; %2 makes a machines file that names this machine")
            .arg(component, useLocal);
    case RunSetup::Obstacle::NoHost:
        return QStringLiteral(
                   "%1; %2 lets it name this machine, \"kestdesk machines edit\" changes it")
            .arg(readiness.problem, useLocal);
    default:
        return readiness.problem;
    }
}

} // namespace

BatchRun::BatchRun(const BatchSetting& setting, const QString& model)
    : m_setting(setting)
    , m_run(setting.component, model, common_ActivePtr<ComponentRunner>(new ComponentRunner))
    , m_forecast(m_run, setting.archive)
    , m_recorder(m_run, RunRecorder::Face::Terminal, setting.archive, setting.limits)
{
    if (setting.repeated) {
        m_recorder.setRepeated(*setting.repeated);
    } else {
        m_recorder.setRunOptions(setting.options);
    }
    m_recordingTime.setSingleShot(true);
    m_recordingTime.setInterval(longestRecording);
    connect(&m_run, &Run::ended, this, &BatchRun::onEnded);
    connect(&m_recorder, &RunRecorder::failed, this, &BatchRun::recordFailed);
    connect(&m_recorder, &RunRecorder::finished, this, &BatchRun::finish);
    connect(&m_recordingTime, &QTimer::timeout, this, &BatchRun::finish);
}

void BatchRun::start(common_CommonSettingsSet& settings)
{
    const RunSetup::Readiness readiness =
        m_setting.repeated ? RecordedRun::setUp(m_run, *m_setting.repeated, settings)
                           : m_run.setUp(m_setting.options, settings);
    if (readiness.isReady()) {
        m_run.start();
    } else {
        m_run.refuse(problemText(readiness, m_run.componentName()));
    }
}

void BatchRun::onEnded()
{
    m_recordingTime.start();
}

void BatchRun::finish()
{
    m_recordingTime.stop();
    if (!std::exchange(m_isFinished, true)) {
        Q_EMIT finished();
    }
}

QJsonObject BatchRun::toJson() const
{
    auto record = m_setting.archive.record(number());
    if (!record || !record->hasEnded()) {
        record = RunFacts::atEnd(m_run);
        record->component = m_run.componentName();
        record->model = QFileInfo(m_run.model()).absoluteFilePath();
    }
    return record->toJson();
}
