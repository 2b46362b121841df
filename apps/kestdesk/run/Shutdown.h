#pragma once

#include "DescendantsEnding.h"

#include <QObject>
#include <QTimer>
#include <QVector>

class Run;

/// Ends the runs of this program, and the processes that runs have left behind, before the program
/// itself ends. Nothing here waits: all of it happens from the event loop.
///
/// Each request takes a step. The first asks the runs to stop, the next kills their processes; a
/// run whose component survives that is given up. When no run is left, the processes that runs have
/// left behind get a time to end by themselves before they are killed, unless there has been a
/// second request by then.
class Shutdown : public QObject
{
    Q_OBJECT

public:
    enum class Phase {
        None,     ///< nothing has been requested
        Stopping, ///< the runs have been asked to stop
        Killing,  ///< the processes of the runs have been killed
        Clearing, ///< no run is left, but processes may be
        Done      ///< nothing is left that could be ended
    };

    Shutdown();

    /// Takes a run into account, best before it is started. It stays the caller's, who may delete
    /// it at any time.
    void add(Run& run);

    Phase phase() const { return m_phase; }
    bool isDone() const { return m_phase == Phase::Done; }

    /// Takes the next step. Where nothing is left to end, that is done at once.
    void request();

    /// Takes the requests back as long as a run is left. Runs that were asked to stop stay so.
    void cancel();

Q_SIGNALS:
    /// The runs have been asked to stop; not without runs.
    void stopping();

    /// No run is left.
    void runsEnded();

    /// Processes are left, which are ended now; comes after runsEnded().
    void clearing();

    /// Nothing is left, or what is left cannot be killed. Comes once, after runsEnded().
    void done();

private:
    void stopRuns();
    void killRuns();
    void giveUpRuns();
    void onRunEnded();
    void clear();
    void finish();
    QVector<Run*> runningRuns() const;

    QVector<Run*> m_runs;
    Phase m_phase = Phase::None;
    QTimer m_killTimer;
    DescendantsEnding m_leftovers;
};
