// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

/// How long something takes, without the time in which some program of the machine waited for a
/// processor (where the system counts that: on Linux). For limits to what other processes do, which
/// a machine that is busy with other things need not keep.
class UnloadedClock
{
public:
    UnloadedClock() : m_pressure(pressure()) { m_clock.start(); }

    /// Milliseconds.
    qint64 elapsed() const
    {
        return m_clock.elapsed() - (pressure() - m_pressure) / microsecondsOfOne;
    }

private:
    static constexpr qint64 microsecondsOfOne = 1000;

    // Microseconds in which at least one program waited for a processor.
    static qint64 pressure()
    {
        QFile file(QStringLiteral("/proc/pressure/cpu"));
        if (!file.open(QIODevice::ReadOnly)) {
            return 0;
        }
        static const QRegularExpression total(QStringLiteral("^some .*total=(\\d+)"));
        return total.match(QString::fromLatin1(file.readAll())).captured(1).toLongLong();
    }

    qint64 m_pressure;
    QElapsedTimer m_clock;
};
