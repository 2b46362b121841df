// SPDX-License-Identifier: MIT
#pragma once

#include "RunQueue.h"

#include <QObject>

class SessionRuns;
class Shutdown;
class common_CommonSettingsSet;

/// Connects the queue with the runs of the window: starts the requested runs, and keeps the waiting
/// ones until the next session.
class WindowQueue : public QObject
{
    Q_OBJECT

public:
    /// The arguments must outlive this object. The number of simultaneous runs is a setting of
    /// kestdesk.
    WindowQueue(SessionRuns& runs, common_CommonSettingsSet& settings, const Shutdown& shutdown,
                QObject* parent);

    RunQueue& queue() { return m_queue; }

    /// Takes over the queues of earlier sessions.
    void restore();

    /// Reads the number of simultaneous runs from the settings again.
    void readSettings();

Q_SIGNALS:
    /// A run is about to be started.
    void starting();

    /// A run of that model has been started.
    void started(const QString& model);

    /// A sentence for the user.
    void reported(const QString& text);

private:
    void start(const QueuedRun& run);
    bool canStart(const QueuedRun& run);

    SessionRuns& m_runs;
    common_CommonSettingsSet& m_settings;
    const Shutdown& m_shutdown;
    RunQueue m_queue;
};
