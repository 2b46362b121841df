#pragma once

#include "SweepReport.h"

#include <QString>

namespace suite {

/// The table of results that a run left beside its model.
struct ResultTable
{
    QVector<SweepPoint> points;
    QString error; ///< why there is none; empty when it was read

    /// Reads a file as SweepReport::csv() makes it.
    static ResultTable read(const QString& path);
};

} // namespace suite
