// SPDX-License-Identifier: MIT
#pragma once

#include <Stopwatch.h>

#include <QTimer>

#include <algorithm>

/// Measures how long the event loop of this thread keeps others waiting, while it lives. What other
/// programs take of a busy machine does not count.
class Heartbeat
{
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.start(0);
    }

    /// Milliseconds after which a user notices. Sanitizers make all work slower.
#if defined(__SANITIZE_ADDRESS__)
    static constexpr qint64 noticeable = 500;
#else
    static constexpr qint64 noticeable = 100;
#endif

    /// Milliseconds between two turns, at most.
    qint64 longestGap() const
    {
        return m_longest;
    }

private:
    void beat()
    {
        m_longest = std::max(m_longest, m_watch.elapsed());
        m_watch = Stopwatch();
    }

    QTimer m_timer;
    Stopwatch m_watch;
    qint64 m_longest = 0;
};
