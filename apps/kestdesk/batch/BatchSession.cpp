// SPDX-License-Identifier: MIT
#include "BatchSession.h"

#include "Component.h"
#include "Descendants.h"
#include "KestdeskSettings.h"
#include "ReasonText.h"
#include "StopSignals.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr int exitValid = 0;
constexpr int exitFault = 1;
constexpr int exitNotStarted = 2;
constexpr int exitStopped = 130; // shells return this for a program that was ended by Ctrl+C

RunArchive::Limits limits()
{
    const KestdeskSettings settings = KestdeskSettings::read();
    return {settings.archiveDays(), settings.archiveMegabytes()};
}

} // namespace

BatchSession::BatchSession(const Component& component, common_RunWrapper::RunOptions options,
                           QStringList models)
    : m_models(std::move(models))
    , m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(),
                 GET_SERVICE(common_IApplicationInfo)->applicationName())
    , m_setting{component, options, RunArchive::ofUser(), limits(), {}}
    , m_queue(1)
    , m_runs(static_cast<std::size_t>(m_models.size()))
{
    connect(&m_queue, &RunQueue::startRequested, this, &BatchSession::start);
    connect(&m_shutdown, &Shutdown::done, this, &BatchSession::leave);
    Descendants::bindToThisProgram();
    StopSignals::watch(this, [this] { onStopRequested(); });
    closeInterruptedRecords();
}

BatchSession::~BatchSession() = default;

// The models do not wait for the records of earlier runs.
void BatchSession::closeInterruptedRecords()
{
    m_disk.post(
        [archive = m_setting.archive](const DiskThread::Answer&) { archive.closeInterrupted(); });
}

void BatchSession::setJobs(int jobs)
{
    m_queue.setRunsAtOnce(jobs);
    m_report.setNaming(jobs > 1);
}

int BatchSession::exec()
{
    QMetaObject::invokeMethod(this, &BatchSession::queueModels, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

// The id of a run in the queue is the number of its model, from 1.
void BatchSession::queueModels()
{
    for (const QString& model : qAsConst(m_models)) {
        QueuedRun run;
        run.model = QFileInfo(model).absoluteFilePath();
        m_queue.add(run);
    }
}

void BatchSession::start(const QueuedRun& queued)
{
    const int index = queued.id - 1;
    auto& run = m_runs[static_cast<std::size_t>(index)];
    run = std::make_unique<BatchRun>(m_setting, m_models.at(index));
    // The runner has just detached this program from the console that the report is shown in.
    connect(&run->run(), &Run::stateChanged, this, [this] { m_console.restore(); });
    m_report.follow(run->run(), run->forecast());
    m_shutdown.add(run->run());
    connect(run.get(), &BatchRun::recordFailed, this, [this](const QString& reason) {
        m_report.reportError(
            tr("the record of this run is not complete: %1").arg(ReasonText::shown(reason)));
    });
    connect(run.get(), &BatchRun::finished, this, [this, queued] { onFinished(queued); });
    run->start(m_settings);
}

// After a request to stop, the shutdown decides when to leave.
void BatchSession::onFinished(const QueuedRun& queued)
{
    const BatchRun& run = *m_runs[static_cast<std::size_t>(queued.id - 1)];
    m_report.end(run.run(), run.number());
    m_queue.onEnded(queued);
    ++m_finishedCount;
    if (m_finishedCount == m_models.size() && m_shutdown.phase() == Shutdown::Phase::None) {
        leave();
    }
}

void BatchSession::setJson(bool isJson)
{
    m_isJson = isJson;
    if (isJson) {
        m_report.leaveOutputFree();
    }
}

void BatchSession::onStopRequested()
{
    if (m_shutdown.phase() == Shutdown::Phase::None) {
        m_report.reportError(tr("stopping; once more ends at once"));
    }
    m_queue.close();
    m_shutdown.request();
}

// After a stop, records may still be being written.
void BatchSession::leave()
{
    for (const auto& run : m_runs) {
        if (run) {
            m_report.end(run->run(), run->number());
        }
    }
    if (m_models.size() > 1) {
        m_report.summarise(results());
    }
    if (m_isJson) {
        writeJson();
    }
    QCoreApplication::exit(exitCode());
}

std::vector<BatchReport::Result> BatchSession::results() const
{
    std::vector<BatchReport::Result> results;
    for (std::size_t i = 0; i < m_runs.size(); ++i) {
        const BatchRun* const run = m_runs[i].get();
        results.push_back(
            {m_models.at(static_cast<int>(i)),
             run != nullptr ? std::optional(run->run().outcome().kind()) : std::nullopt});
    }
    return results;
}

void BatchSession::writeJson() const
{
    QJsonArray runs;
    QJsonArray notBegun;
    for (std::size_t i = 0; i < m_runs.size(); ++i) {
        if (m_runs[i]) {
            runs.append(m_runs[i]->toJson());
        } else {
            notBegun.append(m_models.at(static_cast<int>(i)));
        }
    }
    const QJsonObject json{{QStringLiteral("exitCode"), exitCode()},
                           {QStringLiteral("runs"), runs},
                           {QStringLiteral("notBegun"), notBegun}};
    std::fputs(QJsonDocument(json).toJson().constData(), stdout);
    std::fflush(stdout);
}

// The worst of the outcomes; models whose run has not begun count as stopped.
int BatchSession::exitCode() const
{
    const auto has = [this](RunOutcome::Kind kind) {
        return std::any_of(m_runs.begin(), m_runs.end(), [kind](const auto& run) {
            return run != nullptr && run->run().outcome().kind() == kind;
        });
    };
    const bool isAllBegun =
        std::all_of(m_runs.begin(), m_runs.end(), [](const auto& run) { return run != nullptr; });
    if (!isAllBegun || has(RunOutcome::Kind::Stopped)) {
        return exitStopped;
    }
    if (has(RunOutcome::Kind::NotStarted)) {
        return exitNotStarted;
    }
    return has(RunOutcome::Kind::Fault) ? exitFault : exitValid;
}
