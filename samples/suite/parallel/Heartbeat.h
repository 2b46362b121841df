// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <vector>

namespace suite {

/// Watches whether the partners of a connection are alive: each sends a heartbeat at short
/// intervals, and a partner that is silent for too long is lost.
class Heartbeat : public QObject
{
    Q_OBJECT

public:
    explicit Heartbeat(int partners = 1, QObject* parent = nullptr);

    void start();
    void stop();

    /// To be called when anything from a partner has arrived.
    void noteSign(int partner = 0);

    /// The limit for silence in milliseconds: from the variable KEST_SILENCE_LIMIT, or 5 seconds.
    static int silenceLimit();

Q_SIGNALS:
    /// A heartbeat is to be sent to the partners.
    void beat();

    /// The partner has been silent for too long.
    void lost(int partner);

private:
    void check();

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_lastCheck = 0;
    std::vector<qint64> m_heard; ///< time of the last sign, by partner, in milliseconds
};

} // namespace suite
