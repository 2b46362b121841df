// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QFile>

/// How long this thread takes for something, without the time in which it could have gone on but
/// other programs had the processors (where the system counts that: on Linux). Tells work that
/// waits from work that does not, also on a machine that is busy with other things.
class Stopwatch
{
public:
    Stopwatch() : m_withoutProcessor(withoutProcessor()) { m_clock.start(); }

    /// Milliseconds.
    qint64 elapsed() const
    {
        return m_clock.elapsed() - (withoutProcessor() - m_withoutProcessor) / nanosecondsOfOne;
    }

private:
    static constexpr qint64 nanosecondsOfOne = 1000000;

    // The second number: nanoseconds in which the thread could have run.
    static qint64 withoutProcessor()
    {
#ifndef Q_OS_LINUX // nor another system that shows files of Linux, as Wine does
        return 0;
#endif
        QFile file(QStringLiteral("/proc/thread-self/schedstat"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : 0;
    }

    qint64 m_withoutProcessor;
    QElapsedTimer m_clock;
};
