#pragma once

#include <QString>

#include <optional>

/// The remaining time as it is shown: it counts down evenly, and changes of the estimate are worked
/// in little by little. The text changes in steps that grow with the time, and only goes up when
/// the time has grown by more than such a step.
class RemainingTime
{
public:
    /// The estimate at that time after the start, both in milliseconds; nothing when there is
    /// none. To be called about once a second.
    void update(qint64 now, std::optional<double> remaining);

    /// "about 3:40 left"; empty when there is nothing to show.
    QString text() const;

    /// The same for a table: "about 3:40".
    QString shortText() const;

    /// What is shown, in milliseconds; nothing when there is nothing to show.
    std::optional<qint64> milliseconds() const;

    /// A time in milliseconds in words, rounded: "45 s", "3:40", "25 min", "2 h", "3 days".
    static QString rounded(qint64 milliseconds);

private:
    void smooth(qint64 now, double remaining);

    std::optional<double> m_end; ///< after the start, milliseconds
    qint64 m_lastUpdate = 0;
    qint64 m_shown = 0; ///< milliseconds, a whole number of steps
};
