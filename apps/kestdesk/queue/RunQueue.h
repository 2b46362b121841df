// SPDX-License-Identifier: MIT
#pragma once

#include "QueueFile.h"
#include "QueuedRun.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <optional>

/// The waiting runs in their order. Decides which of them starts when: at most a given number runs
/// at once, and never two on one model. The queue only requests the starts; its owner starts the
/// runs.
class RunQueue : public QObject
{
    Q_OBJECT

public:
    explicit RunQueue(int runsAtOnce, QObject* parent = nullptr);

    /// Keeps the waiting runs in the file from now on, so that they survive the program. Takes over
    /// the runs that ended programs have left, and holds them. Returns the paths of damaged files
    /// among these.
    QStringList keepIn(const QueueFile& file);

    /// The number of runs that may run at once, at least 1.
    void setRunsAtOnce(int count);

    /// Appends a run and returns its id. The run starts from the event loop.
    int add(QueuedRun run);

    /// Starts the next run now instead of from the event loop. Does nothing if none may start.
    void startNext();

    /// The waiting runs, the next one first.
    const QVector<QueuedRun>& runs() const { return m_runs; }

    /// The number of runs that have started and not ended.
    int runningCount() const { return m_running.size(); }

    /// Change a waiting run; ids of other runs are ignored. Positions count from 0; those outside
    /// of the queue mean its ends.
    void remove(int id);
    void move(int id, int position);
    void setHeld(int id, bool isHeld);

    /// Starts no more runs.
    void close();

    /// To be called when the archive has a record of a requested run. Until then the file keeps the
    /// run.
    void onRecorded(const QueuedRun& run);

    /// To be called when a requested run has ended or was not started.
    void onEnded(const QueuedRun& run);

    /// To be called when a requested run cannot start yet because another program runs its model.
    /// It becomes the first of the queue again and is retried after some seconds. Other runs may
    /// overtake it.
    void postpone(const QueuedRun& run);

Q_SIGNALS:
    /// This run is to be started. It has already left the queue.
    void startRequested(const QueuedRun& run);

    /// The waiting runs or their order have changed.
    void changed();

    /// The waiting runs could not be written to the file. The reason is a clause.
    void notKept(const QString& reason);

private:
    int indexOf(int id) const;
    int nextIndex() const;
    bool mayBegin(const QueuedRun& run) const;
    void retry();
    void forget(const QueuedRun& run);
    void keep();
    void apply();

    QVector<QueuedRun> m_runs;
    QVector<QueuedRun> m_unrecorded; ///< requested, but without a record yet
    QStringList m_running;           ///< models of the runs that have started
    QStringList m_postponed;         ///< models
    int m_runsAtOnce;
    int m_lastId = 0;
    bool m_isClosed = false;
    std::optional<QueueFile> m_file;
    QTimer m_startTimer;
    QTimer m_retryTimer;
};
