#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <vector>

namespace suite {

/// Watches whether the other ends of a connection are alive: each sends a sign at short intervals,
/// and one that is silent for some time is lost.
class Heartbeat : public QObject
{
    Q_OBJECT

public:
    explicit Heartbeat(int partners = 1, QObject* parent = nullptr);

    void start();
    void stop();

    /// A sign of a partner has arrived.
    void noteSign(int partner = 0);

    /// How long a partner may be silent, in ms: from the variable KEST_SILENCE_LIMIT, or 5 seconds.
    static int silenceLimit();

Q_SIGNALS:
    /// It is time to tell the partners that this end is there.
    void beat();

    /// The partner has been silent for too long.
    void lost(int partner);

private:
    void check();

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_lastCheck = 0;
    std::vector<qint64> m_heard; ///< when, by partner, in ms
};

} // namespace suite
