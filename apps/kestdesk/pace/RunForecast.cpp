// SPDX-License-Identifier: MIT
#include "RunForecast.h"

#include "PaceHistory.h"
#include "ProcessCount.h"
#include "Run.h"
#include "RunFacts.h"
#include "RunSize.h"

#include <MachinesFile.h>

#include <QtConcurrentRun>

#include <utility>

namespace {

constexpr int interval = 1000; // milliseconds

} // namespace

RunForecast::RunForecast(const Run& run, RunArchive archive, QObject* parent)
    : QObject(parent)
    , m_run(run)
    , m_archive(std::move(archive))
    , m_isCancelled(std::make_shared<std::atomic<bool>>(false))
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &RunForecast::update);
    connect(&run, &Run::stateChanged, this, &RunForecast::onStateChanged);
    connect(&run, &Run::messageReceived, this, [this](const common_IProcessMessage& message) {
        m_pace.add(m_run.elapsed(), message.getType(), message.getText());
    });
    connect(&m_reading, &QFutureWatcher<PaceExpectation>::finished, this, [this] {
        m_pace.expect(m_reading.result());
        m_isReady = true;
        update();
    });
}

// Lets a job that still reads stop soon.
RunForecast::~RunForecast()
{
    *m_isCancelled = true;
}

QString RunForecast::text() const
{
    return m_remaining.text();
}

QString RunForecast::shortText() const
{
    return m_remaining.shortText();
}

void RunForecast::onStateChanged()
{
    if (m_run.state() == Run::State::Running) {
        readHistory();
        m_timer.start();
    } else {
        m_timer.stop();
        update();
    }
}

void RunForecast::readHistory()
{
    const RunRecord start = RunFacts::ofProgram(m_run);
    const QString machinesFile = RunFacts::machinesFile(m_run);
    const RunArchive archive = m_archive;
    const auto isCancelled = m_isCancelled;
    m_reading.setFuture(QtConcurrent::run([start, machinesFile, archive, isCancelled] {
        RunSize size = RunSize::of(start);
        size.processes = ProcessCount::of(start.arguments, suite::MachinesFile::read(machinesFile));
        size.readModel();
        return PaceHistory::expectation(archive, size, *isCancelled);
    }));
}

// The end of a run that was asked to stop cannot be estimated.
void RunForecast::update()
{
    std::optional<double> remaining;
    const qint64 now = m_run.elapsed();
    if (m_isReady && m_run.state() == Run::State::Running) {
        const auto estimate = m_pace.remaining(now);
        if (estimate && estimate->isReliable()) {
            remaining = estimate->remaining;
        }
    }
    m_remaining.update(now, remaining);
    if (std::exchange(m_shown, m_remaining.text()) != m_remaining.text()) {
        Q_EMIT changed();
    }
}
