#include "BatchSession.h"

#include "KestdeskSettings.h"
#include "RecordedRun.h"
#include "RunFacts.h"
#include "StopSignals.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <utility>

namespace {

constexpr int exitValid = 0;
constexpr int exitFault = 1;
constexpr int exitNotStarted = 2;
constexpr int exitStopped = 130; // what shells give for a program that Ctrl+C ended

constexpr int longestRecording = 5000; // milliseconds that the end of a record may take

const QString useLocal = QStringLiteral("\"kestdesk machines use-local\"");

// Why a component is not started, and what the user can do about it in a terminal.
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

BatchSession::BatchSession(const Component& component, common_RunWrapper::RunOptions options,
                           QStringList models)
    : m_component(component)
    , m_options(options)
    , m_models(std::move(models))
    , m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(),
                 GET_SERVICE(common_IApplicationInfo)->applicationName())
    , m_archive(RunArchive::ofUser())
{
    const KestdeskSettings settings = KestdeskSettings::read();
    m_limits = {settings.archiveDays(), settings.archiveMegabytes()};
    m_recordingTime.setSingleShot(true);
    m_recordingTime.setInterval(longestRecording);
    connect(&m_recordingTime, &QTimer::timeout, this, &BatchSession::onRecorded);
    connect(&m_shutdown, &Shutdown::done, this, &BatchSession::leave);
    StopSignals::watch(this, [this] { onStopRequested(); });
}

BatchSession::~BatchSession() = default;

int BatchSession::exec()
{
    QMetaObject::invokeMethod(this, &BatchSession::runNext, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

// Once the user has asked to stop, the shutdown decides when to leave.
void BatchSession::runNext()
{
    if (m_shutdown.phase() != Shutdown::Phase::None) {
        return;
    }
    if (m_outcomes.size() == m_models.size()) {
        leave();
        return;
    }
    startRun();
}

void BatchSession::startRun()
{
    const common_ActivePtr<ComponentRunner> runner(new ComponentRunner);
    m_forecast.reset();
    m_run = std::make_unique<Run>(m_component, m_models[m_outcomes.size()], runner);
    m_forecast = std::make_unique<RunForecast>(*m_run, m_archive);
    m_report.follow(*m_run, *m_forecast);
    m_shutdown.add(*m_run);
    makeRecorder();
    connect(m_run.get(), &Run::ended, this, &BatchSession::onRunEnded);
    const RunSetup::Readiness readiness = setUp();
    if (readiness.isReady()) {
        m_run->start();
    } else {
        m_run->refuse(problemText(readiness, m_run->componentName()));
    }
}

RunSetup::Readiness BatchSession::setUp()
{
    return m_repeated ? RecordedRun::setUp(*m_run, *m_repeated, m_settings)
                      : m_run->setUp(m_options, m_settings);
}

void BatchSession::makeRecorder()
{
    m_recorder =
        std::make_unique<RunRecorder>(*m_run, RunRecorder::Face::Terminal, m_archive, m_limits);
    if (m_repeated) {
        m_recorder->setRepeated(*m_repeated);
    } else {
        m_recorder->setRunOptions(m_options);
    }
    connect(m_recorder.get(), &RunRecorder::failed, this, [this](const QString& reason) {
        m_report.reportError(QStringLiteral("the record of this run is not complete: ") + reason);
    });
    connect(m_recorder.get(), &RunRecorder::finished, this, &BatchSession::onRecorded);
}

void BatchSession::onRunEnded()
{
    m_outcomes.append(m_run->outcome().kind());
    m_recordingTime.start();
}

// The next run begins when the record of this one is whole, or takes too long for that.
void BatchSession::onRecorded()
{
    m_recordingTime.stop();
    m_recorder->disconnect(this);
    if (m_run->outcome().kind() != RunOutcome::Kind::Valid && m_recorder->number() > 0) {
        m_report.showRecord(m_recorder->number());
    }
    keepRecord();
    runNext();
}

void BatchSession::setJson(bool isJson)
{
    m_isJson = isJson;
    if (isJson) {
        m_report.leaveOutputFree();
    }
}

// Where the archive has none, what is known without it.
void BatchSession::keepRecord()
{
    if (!m_isJson) {
        return;
    }
    auto record = m_archive.record(m_recorder->number());
    if (!record || !record->hasEnded()) {
        record = RunFacts::atEnd(*m_run);
        record->component = m_run->componentName();
        record->model = QFileInfo(m_run->model()).absoluteFilePath();
    }
    m_records.append(record->toJson());
}

void BatchSession::writeJson() const
{
    const QJsonObject json{
        {QStringLiteral("exitCode"), exitCode()},
        {QStringLiteral("runs"), m_records},
        {QStringLiteral("notBegun"), QJsonArray::fromStringList(m_models.mid(m_outcomes.size()))},
    };
    std::fputs(QJsonDocument(json).toJson().constData(), stdout);
    std::fflush(stdout);
}

void BatchSession::onStopRequested()
{
    if (m_shutdown.phase() == Shutdown::Phase::None) {
        m_report.reportError(QStringLiteral("stopping; once more ends at once"));
    }
    m_shutdown.request();
}

void BatchSession::leave()
{
    if (m_models.size() > 1) {
        m_report.summarise(m_models, m_outcomes);
    }
    if (m_isJson) {
        while (m_records.size() < m_outcomes.size()) {
            keepRecord();
        }
        writeJson();
    }
    QCoreApplication::exit(exitCode());
}

// The worst of the outcomes; models that were not begun have been stopped.
int BatchSession::exitCode() const
{
    if (m_outcomes.contains(RunOutcome::Kind::Stopped) || m_outcomes.size() < m_models.size()) {
        return exitStopped;
    }
    if (m_outcomes.contains(RunOutcome::Kind::NotStarted)) {
        return exitNotStarted;
    }
    return m_outcomes.contains(RunOutcome::Kind::Fault) ? exitFault : exitValid;
}
