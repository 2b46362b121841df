// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The remaining time for display: it counts down evenly and follows changes of the estimate
/// smoothly. The text is rounded to steps that grow with the time, and only increases if the time
/// has grown by more than such a step.
class RemainingTime
{
public:
    /// Sets the estimate (nothing if there is none) at the time `now` after the start, both in
    /// milliseconds. To be called about once a second.
    void update(qint64 now, std::optional<double> remaining);

    /// "about 3:40 left"; empty if there is nothing to show.
    QString text() const;

    /// The same for a table: "about 3:40".
    QString shortText() const;

    /// The shown time in milliseconds; nothing if none is shown.
    std::optional<qint64> milliseconds() const;

    /// Formats milliseconds, rounded: "45 s", "3:40", "25 min", "2 h", "3 days".
    static QString rounded(qint64 milliseconds);

private:
    void smooth(qint64 now, double remaining);

    std::optional<double> m_end; ///< smoothed end, milliseconds after the start
    qint64 m_lastUpdate = 0;
    qint64 m_shown = 0; ///< milliseconds, a whole number of steps
};
