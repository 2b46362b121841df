#pragma once

#include <QSet>
#include <QTimer>

/// Removes adopted orphans that have ended from the system's list of processes, where they would
/// stay until this program ends.
class OrphanReaper
{
public:
    OrphanReaper();

    /// From now on, from the event loop.
    void start();

    /// Looks once. A child that has not ended at the last look already is left alone, for its owner
    /// in this program may still ask for its exit code: a QProcess does so before the event loop
    /// comes back here.
    void reap();

private:
    QTimer m_timer;
    QSet<qint64> m_seen; ///< had ended at the last look
};
