// SPDX-License-Identifier: MIT
#include "StagedEnd.h"

#include <utility>

namespace {

constexpr int pollInterval = 20; // ms

} // namespace

StagedEnd::StagedEnd(Deeds deeds, QObject* parent) : QObject(parent), m_deeds(std::move(deeds))
{
    m_timer.setInterval(pollInterval);
    connect(&m_timer, &QTimer::timeout, this, &StagedEnd::look);
}

void StagedEnd::start(StopTimes times)
{
    m_times = times;
    m_clock.start();
    m_timer.start();
    act(0);
}

// A program that was suspended until all times were over kills before it gives up.
void StagedEnd::look()
{
    const qint64 elapsed = m_clock.elapsed();
    const bool isAnyAlive = m_deeds.areAlive();
    if (isAnyAlive) {
        act(elapsed);
    }
    if (!isAnyAlive || elapsed >= m_times.givingUp) {
        m_timer.stop();
        Q_EMIT ended();
    }
}

void StagedEnd::act(qint64 elapsed) const
{
    if (elapsed >= m_times.killing) {
        m_deeds.kill();
    } else if (elapsed >= m_times.asking && m_deeds.ask) {
        m_deeds.ask();
    }
}
