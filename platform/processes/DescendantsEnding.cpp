#include "DescendantsEnding.h"

#include "Descendants.h"

namespace {

constexpr int pollInterval = 10; // milliseconds
constexpr int killLimit = 2000;  // a process that waits for a device cannot be killed

} // namespace

DescendantsEnding::DescendantsEnding()
{
    m_timer.setInterval(pollInterval);
    connect(&m_timer, &QTimer::timeout, this, &DescendantsEnding::look);
}

void DescendantsEnding::start(int graceTime)
{
    m_grace.setRemainingTime(graceTime);
    m_end.setRemainingTime(graceTime + killLimit);
    m_timer.start();
}

void DescendantsEnding::hurry()
{
    start(0);
}

// Kills again and again: what a process starts while the others are killed is found the next time.
void DescendantsEnding::look()
{
    if (!Descendants::areAlive() || m_end.hasExpired()) {
        m_timer.stop();
        Q_EMIT ended();
    } else if (m_grace.hasExpired()) {
        Descendants::killAll();
    }
}
