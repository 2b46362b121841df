// SPDX-License-Identifier: MIT
#include "Shutdown.h"

#include "Descendants.h"
#include "Run.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int graceTime = 2000; // milliseconds that processes may take to end by themselves
constexpr int killTime = 2000;  // milliseconds after which a killed run is given up

} // namespace

Shutdown::Shutdown()
{
    m_killTimer.setSingleShot(true);
    m_killTimer.setInterval(killTime);
    connect(&m_killTimer, &QTimer::timeout, this, &Shutdown::giveUpRuns);
    connect(&m_leftovers, &DescendantsEnding::ended, this, &Shutdown::finish);
}

// A run that has just ended is still in its last callback: the next step follows when that has
// returned.
void Shutdown::add(Run& run)
{
    m_runs.append(&run);
    connect(&run, &QObject::destroyed, this, [this, gone = &run] { m_runs.removeOne(gone); });
    connect(&run, &Run::ended, this, &Shutdown::onRunEnded, Qt::QueuedConnection);
}

void Shutdown::request()
{
    switch (m_phase) {
    case Phase::None:
        stopRuns();
        break;
    case Phase::Stopping:
    case Phase::Killing:
        killRuns();
        break;
    case Phase::Clearing:
        m_leftovers.hurry();
        break;
    case Phase::Done:
        break;
    }
}

void Shutdown::cancel()
{
    if (m_phase == Phase::Stopping || m_phase == Phase::Killing) {
        m_phase = Phase::None;
    }
}

void Shutdown::stopRuns()
{
    Descendants::adoptOrphans();
    const QVector<Run*> runs = runningRuns();
    if (runs.isEmpty()) {
        clear();
        return;
    }
    m_phase = Phase::Stopping;
    Q_EMIT stopping();
    for (Run* run : runs) {
        run->stop(Run::Stopper::Shutdown);
    }
}

// The runs stay until they have noticed the end, because they delete their temporary files then.
void Shutdown::killRuns()
{
    m_phase = Phase::Killing;
    Descendants::killAll();
    if (!m_killTimer.isActive()) {
        m_killTimer.start();
    }
}

// A process that waits for a device cannot be killed.
void Shutdown::giveUpRuns()
{
    const QVector<Run*> runs = runningRuns();
    for (Run* run : runs) {
        run->giveUp();
    }
}

void Shutdown::onRunEnded()
{
    const bool isEnding = m_phase == Phase::Stopping || m_phase == Phase::Killing;
    if (isEnding && runningRuns().isEmpty()) {
        clear();
    }
}

void Shutdown::clear()
{
    const int time = m_phase == Phase::Killing ? 0 : graceTime;
    m_phase = Phase::Clearing;
    Q_EMIT runsEnded();
    if (!Descendants::areAlive()) {
        finish();
        return;
    }
    Q_EMIT clearing();
    m_leftovers.start(time);
}

void Shutdown::finish()
{
    if (!isDone()) {
        m_phase = Phase::Done;
        Q_EMIT done();
    }
}

QVector<Run*> Shutdown::runningRuns() const
{
    QVector<Run*> result;
    std::copy_if(m_runs.begin(), m_runs.end(), std::back_inserter(result),
                 [](const Run* run) { return run->isRunning(); });
    return result;
}
