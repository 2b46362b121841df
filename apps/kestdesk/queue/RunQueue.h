#pragma once

#include "QueueFile.h"
#include "QueuedRun.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <optional>

/// The runs that wait, in their order, and when which of them begins: so many at once, and those of
/// one model never at the same time. Who owns the queue starts the runs.
class RunQueue : public QObject
{
    Q_OBJECT

public:
    explicit RunQueue(int runsAtOnce, QObject* parent = nullptr);

    /// Keeps the runs that wait in the file from now on, so that they survive the program. Takes
    /// over what other programs have left there, each held.
    void keepIn(const QueueFile& file);

    /// At least 1.
    void setRunsAtOnce(int count);

    /// Puts a run at the end and returns its id. It begins from the event loop.
    int add(QueuedRun run);

    /// Lets the next run begin now, not first from the event loop. Nothing where none may begin.
    void startNext();

    /// Those that wait, the next one first.
    const QVector<QueuedRun>& runs() const { return m_runs; }

    /// Of those that have begun and not ended.
    int runningCount() const { return m_running.size(); }

    /// Changes a run that waits; others are left alone. Positions outside of the queue are its
    /// ends.
    void remove(int id);
    void move(int id, int position);
    void setHeld(int id, bool isHeld);

    /// No run begins any more.
    void close();

    /// The archive has a record of a run that was requested. Until then the file keeps the run.
    void onRecorded(const QueuedRun& run);

    /// A run that was requested has ended, or was not started.
    void onEnded(const QueuedRun& run);

    /// A run that was requested cannot begin yet, because another program runs its model: it is the
    /// next one again, and is tried again after some seconds. Others may overtake it.
    void postpone(const QueuedRun& run);

Q_SIGNALS:
    /// It is this run's turn. It is not in the queue any more.
    void startRequested(const QueuedRun& run);

    /// The runs that wait are others, or their order is.
    void changed();

    /// The runs that wait are not kept, for that reason, a clause.
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
    QVector<QueuedRun> m_unrecorded; ///< have been requested
    QStringList m_running;           ///< models
    QStringList m_postponed;         ///< models
    int m_runsAtOnce;
    int m_lastId = 0;
    bool m_isClosed = false;
    std::optional<QueueFile> m_file;
    QTimer m_startTimer;
    QTimer m_retryTimer;
};
