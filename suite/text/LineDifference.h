// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// A change between two texts: lines of the left one that are replaced by lines of the right one.
/// Either list may be empty.
struct LineChange
{
    int leftLine =
        0; ///< number of the first line, from 1 on; without lines, of the one that follows
    int rightLine = 0;
    QStringList left;
    QStringList right;
};

/// The differences between two texts, line by line. Line ends (LF or CR LF), and a missing one at
/// the end of a text, are ignored.
namespace LineDifference {

/// The shortest list of changes, in order; for texts with very little in common, a longer one.
/// Takes time and memory linear in the size of the texts, however different they are.
QVector<LineChange> of(const QByteArray& left, const QByteArray& right);

} // namespace LineDifference
} // namespace suite
