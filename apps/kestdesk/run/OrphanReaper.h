#pragma once

#include <QSet>
#include <QTimer>

/// Takes leave of adopted orphans that have ended: who is nobody's child any more but this
/// program's would stay in the system's list of processes until this program ends.
class OrphanReaper
{
public:
    OrphanReaper();

    /// From now on, from the event loop.
    void start();

    /// One look. A child that somebody in this program may still ask for its exit code is left
    /// alone: a QProcess does so before the event loop comes back here.
    void reap();

private:
    QTimer m_timer;
    QSet<qint64> m_seen; ///< had ended at the last look
};
