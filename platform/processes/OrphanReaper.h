// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QTimer>

/// Reaps adopted orphans that have ended; otherwise they would stay in the system's process list
/// until this program ends.
class OrphanReaper
{
public:
    OrphanReaper();

    /// Reaps from now on, from the event loop.
    void start();

    /// Makes one pass. Only reaps children that had already ended in the pass before, because their
    /// owner in this program may still read the exit code: a QProcess does so before the event loop
    /// runs the next pass.
    void reap();

private:
    QTimer m_timer;
    QSet<qint64> m_seen; ///< had ended in the last pass
};
