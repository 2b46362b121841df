#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// A place where two texts differ: these lines of the left one stand where the right one has those.
/// Either list may be empty.
struct LineChange
{
    int leftLine =
        0; ///< number of the first line, from 1 on; without lines, of the one that follows
    int rightLine = 0;
    QStringList left;
    QStringList right;
};

/// The differences between two texts, line by line. The ends of lines (LF or CR LF) do not count,
/// nor does a missing one at the end of a text.
namespace LineDifference {

/// The shortest list of changes, in order; where the texts have very little in common, a longer
/// one. Takes time and memory in proportion to the texts, however different they are.
QVector<LineChange> of(const QByteArray& left, const QByteArray& right);

} // namespace LineDifference
} // namespace suite
