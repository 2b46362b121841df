// SPDX-License-Identifier: MIT
#pragma once

#include <ResultTable.h>

/// What one run of a solver component found, as read from its table.
struct Result
{
    QString path;                       ///< absolute
    QVector<suite::ResultPoint> points; ///< by rising frequency
    QString error;                      ///< why there are none; empty when it was read

    /// Reads a table (CSV) of a run.
    static Result read(const QString& path);

    /// Reads a table from its bytes.
    static Result parse(const QByteArray& bytes);

    /// File name without its suffix.
    QString name() const;

    /// The same as windows show it.
    QString shownName() const;

    /// The quantity at a frequency on the line between the points beside it; nothing outside the
    /// result, and beside points where it is not known.
    std::optional<double> valueAt(double frequency, suite::Quantity quantity) const;

    /// Whether some point has the quantity.
    bool has(suite::Quantity quantity) const;

private:
    static Result ofTable(suite::ResultTable table);
};
