#pragma once

#include "EngineOutput.h"
#include "Finding.h"

#include <QVector>

#include <optional>

namespace suite {

/// One frequency of a sweep, in MHz, and the impedance there when a source drives the structure.
struct SweepPoint
{
    double frequency = 0;
    std::optional<Impedance> impedance;
};

/// What a sweep gave: the table that is printed, the table that is saved, and the facts in it.
class SweepReport
{
public:
    void add(const SweepPoint& point) { m_points.append(point); }

    /// The header and a line of the table for people.
    static QString tableHeader();
    static QString tableLine(const SweepPoint& point);

    /// The table for programs, with a point as decimal separator whatever the locale.
    [[nodiscard]] QByteArray csv() const;

    /// Resonances and the best match, as notices.
    [[nodiscard]] FindingList facts() const;

private:
    QVector<SweepPoint> m_points;
};

} // namespace suite
