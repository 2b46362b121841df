// SPDX-License-Identifier: MIT
#pragma once

#include "DescendantsEnding.h"

#include <QObject>
#include <QTimer>
#include <QVector>

class Run;

/// Ends the runs of this program, and the processes that runs have left behind, before the program
/// itself ends. Never blocks: everything happens in the event loop.
///
/// Each request takes one step. The first asks the runs to stop, the second kills their processes;
/// a run whose component survives that is given up. When no run is left, the processes that runs
/// have left behind get some time to end by themselves before they are killed. After a second
/// request they are killed at once.
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

    /// Adds a run to end, preferably before it is started. The caller keeps the ownership and may
    /// delete it at any time.
    void add(Run& run);

    Phase phase() const { return m_phase; }
    bool isDone() const { return m_phase == Phase::Done; }

    /// Takes the next step. If nothing is left to end, done() follows at once.
    void request();

    /// Cancels the requests, as long as a run is left. A run that was asked to stop still stops.
    void cancel();

Q_SIGNALS:
    /// The runs have been asked to stop. Not emitted without runs.
    void stopping();

    /// No run is left.
    void runsEnded();

    /// Processes are left and are ended now. Emitted after runsEnded().
    void clearing();

    /// Nothing is left, or what is left cannot be killed. Emitted once, after runsEnded().
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
