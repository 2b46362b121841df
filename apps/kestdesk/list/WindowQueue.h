#pragma once

#include "RunQueue.h"

#include <QObject>

class SessionRuns;
class Shutdown;
class common_CommonSettingsSet;

/// The queue of the window's runs: starts each run when its turn has come, and keeps those that
/// wait from one session to the next.
class WindowQueue : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this. How many runs go at once is a setting of kestdesk.
    WindowQueue(SessionRuns& runs, common_CommonSettingsSet& settings, const Shutdown& shutdown,
                QObject* parent);

    RunQueue& queue() { return m_queue; }

    /// Takes over what earlier sessions have left.
    void restore();

    /// Reads how many runs may go at once again.
    void readSettings();

Q_SIGNALS:
    /// Before a run is started.
    void starting();

    /// A run of that model has been started.
    void started(const QString& model);

    /// Something that the user should know of, as a sentence.
    void reported(const QString& text);

private:
    void start(const QueuedRun& run);
    bool canStart(const QueuedRun& run);

    SessionRuns& m_runs;
    common_CommonSettingsSet& m_settings;
    const Shutdown& m_shutdown;
    RunQueue m_queue;
};
