#pragma once

#include "Finding.h"

#include <ResultPoint.h>

#include <QVector>

/// What people are shown of a sweep.
namespace suite::SweepReport {

/// The header and a line of the table that is printed.
QString tableHeader();
QString tableLine(const ResultPoint& point);

/// Resonances and the best match, as notices. The points come in the order of the sweep.
FindingList facts(const QVector<ResultPoint>& points);

} // namespace suite::SweepReport
