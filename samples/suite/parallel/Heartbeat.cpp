// SPDX-License-Identifier: MIT
#include "Heartbeat.h"

namespace suite {

namespace {

constexpr int defaultSilenceLimit = 5000; // ms
constexpr int leastSilenceLimit = 500;    // ms
constexpr int beatsInLimit = 10;

} // namespace

Heartbeat::Heartbeat(int partners, QObject* parent)
    : QObject(parent), m_heard(static_cast<std::size_t>(partners), 0)
{
    m_timer.setInterval(silenceLimit() / beatsInLimit);
    connect(&m_timer, &QTimer::timeout, this, &Heartbeat::check);
}

void Heartbeat::start()
{
    m_clock.start();
    m_lastCheck = 0;
    std::fill(m_heard.begin(), m_heard.end(), 0);
    m_timer.start();
}

void Heartbeat::stop()
{
    m_timer.stop();
}

void Heartbeat::noteSign(int partner)
{
    m_heard.at(static_cast<std::size_t>(partner)) = m_clock.isValid() ? m_clock.elapsed() : 0;
}

int Heartbeat::silenceLimit()
{
    bool isNumber = false;
    const int chosen = qEnvironmentVariableIntValue("KEST_SILENCE_LIMIT", &isNumber);
    return isNumber ? qMax(chosen, leastSilenceLimit) : defaultSilenceLimit;
}

// Time in which this process itself was halted is no silence of the others.
void Heartbeat::check()
{
    const qint64 now = m_clock.elapsed();
    const qint64 halted = qMax<qint64>(0, now - m_lastCheck - qint64(2) * m_timer.interval());
    m_lastCheck = now;
    Q_EMIT beat();
    for (std::size_t i = 0; i < m_heard.size() && m_timer.isActive(); ++i) {
        m_heard[i] += halted;
        if (now - m_heard[i] > silenceLimit()) {
            Q_EMIT lost(static_cast<int>(i));
        }
    }
}

} // namespace suite
