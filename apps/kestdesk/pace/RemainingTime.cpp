// SPDX-License-Identifier: MIT
#include "RemainingTime.h"

#include <QCoreApplication>

#include <cmath>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RemainingTime)
};

constexpr qint64 second = 1000;
constexpr qint64 minute = 60 * second;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

constexpr qint64 tooShort = 2 * second; // since the start: no figure before
constexpr qint64 leastShown = 5 * second;
constexpr double leastSmoothing = 3 * second;
constexpr double smoothing = 0.1; // of the remaining time

// Times up to the limit are rounded to the step.
constexpr struct
{
    qint64 limit;
    qint64 step;
} roundings[] = {
    {10 * minute, 5 * second}, {hour, minute},  {2 * hour, 5 * minute},
    {10 * hour, hour / 2},     {2 * day, hour},
};

qint64 stepOf(qint64 time)
{
    for (const auto& row : roundings) {
        if (time < row.limit) {
            return row.step;
        }
    }
    return day / 2;
}

qint64 roundedTime(double time)
{
    const qint64 step = stepOf(static_cast<qint64>(time));
    return qMax(leastShown, qRound64(time / static_cast<double>(step)) * step);
}

} // namespace

void RemainingTime::update(qint64 now, std::optional<double> remaining)
{
    if (!remaining || now < tooShort) {
        m_end.reset();
        return;
    }
    const bool isFirst = !m_end;
    smooth(now, *remaining);
    const double left = qMax(*m_end - static_cast<double>(now), 0.);
    const bool isMore = left > static_cast<double>(m_shown + stepOf(m_shown));
    const qint64 rounded = roundedTime(left);
    if (isFirst || rounded < m_shown || isMore) {
        m_shown = rounded;
    }
}

// The shown end is a low-pass of the estimates, with a time constant of a tenth of the remaining
// time.
void RemainingTime::smooth(qint64 now, double remaining)
{
    const double end = static_cast<double>(now) + remaining;
    const double delay = qMax(leastSmoothing, smoothing * remaining);
    const double part = m_end ? -std::expm1(static_cast<double>(m_lastUpdate - now) / delay) : 1;
    m_end = m_end.value_or(end) + part * (end - m_end.value_or(end));
    m_lastUpdate = now;
}

QString RemainingTime::text() const
{
    return m_end ? Texts::tr("about %1 left").arg(rounded(m_shown)) : QString();
}

QString RemainingTime::shortText() const
{
    return m_end ? Texts::tr("about %1").arg(rounded(m_shown)) : QString();
}

std::optional<qint64> RemainingTime::milliseconds() const
{
    return m_end ? std::optional<qint64>(m_shown) : std::nullopt;
}

QString RemainingTime::rounded(qint64 milliseconds)
{
    const qint64 time = roundedTime(static_cast<double>(milliseconds));
    if (time < minute) {
        return Texts::tr("%1 s").arg(time / second);
    }
    if (time < 10 * minute) {
        return QStringLiteral("%1:%2")
            .arg(time / minute)
            .arg(time % minute / second, 2, 10, QLatin1Char('0'));
    }
    if (time < hour) {
        return Texts::tr("%1 min").arg(time / minute);
    }
    if (time < 2 * day) {
        const qint64 hours = time / hour;
        const qint64 minutes = time % hour / minute;
        return minutes > 0 ? Texts::tr("%1 h %2 min").arg(hours).arg(minutes)
                           : Texts::tr("%1 h").arg(hours);
    }
    return Texts::tr("%1 days").arg(static_cast<double>(time) / day);
}
