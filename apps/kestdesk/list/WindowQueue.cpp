// SPDX-License-Identifier: MIT
#include "WindowQueue.h"

#include "Component.h"
#include "KestdeskSettings.h"
#include "ModelLock.h"
#include "ReasonText.h"
#include "SessionRuns.h"
#include "Shutdown.h"

#include <VisibleText.h>

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

WindowQueue::WindowQueue(SessionRuns& runs, common_CommonSettingsSet& settings,
                         const Shutdown& shutdown, QObject* parent)
    : QObject(parent)
    , m_runs(runs)
    , m_settings(settings)
    , m_shutdown(shutdown)
    , m_queue(KestdeskSettings::read().runsAtOnce())
{
    connect(&m_queue, &RunQueue::startRequested, this, &WindowQueue::start);
    connect(&m_queue, &RunQueue::notKept, this, [this](const QString& reason) {
        Q_EMIT reported(tr("The queue will not survive the end of kestdesk: %1")
                            .arg(ReasonText::shown(reason)));
    });
}

void WindowQueue::restore()
{
    const QStringList damaged =
        m_queue.keepIn(QueueFile(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory()));
    const int count = m_queue.runs().size();
    QStringList report;
    if (count > 0) {
        report.append(tr("Runs of an earlier session are held in the queue: %1").arg(count));
    }
    if (!damaged.isEmpty()) {
        report.append(
            tr("Not all runs of an earlier session could be read; the damaged file of its "
               "queue is kept as %1")
                .arg(damaged.join(QStringLiteral(", "))));
    }
    if (!report.isEmpty()) {
        Q_EMIT reported(report.join(QStringLiteral(". ")));
    }
}

void WindowQueue::readSettings()
{
    m_queue.setRunsAtOnce(KestdeskSettings::read().runsAtOnce());
}

// While the window is being closed no run starts; the user may still cancel the closing.
bool WindowQueue::canStart(const QueuedRun& run)
{
    if (m_shutdown.phase() != Shutdown::Phase::None) {
        return false;
    }
    ModelLock lock(run.model);
    if (lock.take()) {
        return true; // the run will take the lock itself
    }
    Q_EMIT reported(tr("%1 waits: it is being run already, by %2")
                        .arg(suite::visibleFileName(run.model), ReasonText::shown(lock.owner())));
    return false;
}

void WindowQueue::start(const QueuedRun& run)
{
    if (!canStart(run)) {
        m_queue.postpone(run);
        return;
    }
    Q_EMIT starting();
    WindowRun* const started =
        m_runs.start(*Component::find(run.component), run.model, run.options, m_settings);
    if (started == nullptr) {
        m_queue.onEnded(run);
        return;
    }
    connect(started, &WindowRun::ended, this, [this, run] { m_queue.onEnded(run); });
    connect(started, &WindowRun::recordMade, this, [this, run] { m_queue.onRecorded(run); });
    Q_EMIT this->started(run.model);
}
