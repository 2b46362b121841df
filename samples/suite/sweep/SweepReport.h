// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <ResultPoint.h>

#include <QVector>

/// Texts about a sweep for the user.
namespace suite::SweepReport {

/// The header and a line of the printed table.
QString tableHeader();
QString tableLine(const ResultPoint& point);

/// Resonances and the best match, as notices. The points come in the order of the sweep.
FindingList facts(const QVector<ResultPoint>& points);

} // namespace suite::SweepReport
