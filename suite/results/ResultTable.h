// SPDX-License-Identifier: MIT
#pragma once

#include "ResultPoint.h"

#include <QString>
#include <QVector>

namespace suite {

/// A table of results over frequency, comma-separated, as solver components write it for other
/// programs.
struct ResultTable
{
    QVector<ResultPoint> points; ///< in the order of the file
    QString error;               ///< why reading failed, as part of a sentence; else empty

    /// Reads a file, or a file's content.
    static ResultTable read(const QString& path);
    static ResultTable parse(const QByteArray& bytes);

    /// Whether the file begins like such a table.
    static bool isTable(const QString& path);

    /// The names of the columns.
    static QList<QByteArray> columns();

    /// The cells of a point's line, rounded to the digits of a table.
    static QList<QByteArray> cells(const ResultPoint& point);

    /// The file's content. parse() gives the points again, rounded to the digits of a table.
    [[nodiscard]] QByteArray bytes() const;
};

} // namespace suite
