// SPDX-License-Identifier: MIT
#include "RunQueue.h"

#include <FileIdentity.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int retryInterval = 3000; // milliseconds

bool containsFile(const QStringList& models, const QString& model)
{
    return std::any_of(models.begin(), models.end(),
                       [&model](const QString& each) { return suite::isSameFile(each, model); });
}

} // namespace

RunQueue::RunQueue(int runsAtOnce, QObject* parent) : QObject(parent), m_runsAtOnce(runsAtOnce)
{
    m_startTimer.setSingleShot(true);
    connect(&m_startTimer, &QTimer::timeout, this, &RunQueue::startNext);
    m_retryTimer.setSingleShot(true);
    m_retryTimer.setInterval(retryInterval);
    connect(&m_retryTimer, &QTimer::timeout, this, &RunQueue::retry);
}

// Held, because opening a window must not start computations.
QStringList RunQueue::keepIn(const QueueFile& file)
{
    m_file = file;
    QueueFile::Left left = file.takeLeft();
    for (QueuedRun& run : left.runs) {
        run.id = ++m_lastId;
        run.isHeld = true;
        m_runs.append(run);
    }
    apply();
    return left.damaged;
}

void RunQueue::setRunsAtOnce(int count)
{
    m_runsAtOnce = std::max(1, count);
    m_startTimer.start(0);
}

int RunQueue::add(QueuedRun run)
{
    run.id = ++m_lastId;
    m_runs.append(std::move(run));
    apply();
    return m_lastId;
}

int RunQueue::indexOf(int id) const
{
    const auto found = std::find_if(m_runs.begin(), m_runs.end(),
                                    [id](const QueuedRun& run) { return run.id == id; });
    return found == m_runs.end() ? -1 : static_cast<int>(std::distance(m_runs.begin(), found));
}

void RunQueue::remove(int id)
{
    const int index = indexOf(id);
    if (index >= 0) {
        m_runs.remove(index);
        apply();
    }
}

void RunQueue::move(int id, int position)
{
    const int index = indexOf(id);
    if (index >= 0) {
        m_runs.move(index, qBound(0, position, m_runs.size() - 1));
        apply();
    }
}

void RunQueue::setHeld(int id, bool isHeld)
{
    const int index = indexOf(id);
    if (index >= 0) {
        m_runs[index].isHeld = isHeld;
        apply();
    }
}

void RunQueue::close()
{
    m_isClosed = true;
}

void RunQueue::onRecorded(const QueuedRun& run)
{
    forget(run);
    keep();
}

void RunQueue::forget(const QueuedRun& run)
{
    const auto end = std::remove_if(m_unrecorded.begin(), m_unrecorded.end(),
                                    [&run](const QueuedRun& each) { return each.id == run.id; });
    m_unrecorded.erase(end, m_unrecorded.end());
}

void RunQueue::onEnded(const QueuedRun& run)
{
    onRecorded(run);
    m_running.removeOne(run.model);
    m_startTimer.start(0);
}

void RunQueue::postpone(const QueuedRun& run)
{
    forget(run);
    m_running.removeOne(run.model);
    m_postponed.append(run.model);
    m_runs.prepend(run);
    m_retryTimer.start();
    apply();
}

void RunQueue::retry()
{
    m_postponed.clear();
    m_startTimer.start(0);
}

bool RunQueue::mayBegin(const QueuedRun& run) const
{
    return !run.isHeld && !m_postponed.contains(run.model) && !containsFile(m_running, run.model);
}

// Returns -1 if no run can start now.
int RunQueue::nextIndex() const
{
    if (m_isClosed || m_running.size() >= m_runsAtOnce) {
        return -1;
    }
    const auto found = std::find_if(m_runs.begin(), m_runs.end(),
                                    [this](const QueuedRun& run) { return mayBegin(run); });
    return found == m_runs.end() ? -1 : static_cast<int>(std::distance(m_runs.begin(), found));
}

// One at a time: the slot that starts the run may change the queue.
void RunQueue::startNext()
{
    const int index = nextIndex();
    if (index < 0) {
        return;
    }
    const QueuedRun run = m_runs.takeAt(index);
    m_running.append(run.model);
    m_unrecorded.append(run);
    apply();
    Q_EMIT startRequested(run);
}

void RunQueue::keep()
{
    if (m_file && !m_file->write(m_unrecorded + m_runs)) {
        Q_EMIT notKept(m_file->reason());
    }
}

void RunQueue::apply()
{
    keep();
    Q_EMIT changed();
    m_startTimer.start(0);
}
