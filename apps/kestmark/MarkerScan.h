// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// Where the markers of a text stand, and what only looks like one. What a marker means is the
/// library's matter.
namespace MarkerScan {

/// A text that has the form of a marker, whether or not its word is known.
struct Found
{
    int position;
    int end;      ///< behind the closing fence
    QString text; ///< with the fences: "-*-error-*-"
};

/// What looks like a marker and is none.
struct NearMiss
{
    QString text;       ///< as it stands there; empty when there is nothing of that kind
    QString suggestion; ///< the marker that was probably meant; empty when that is not clear
};

/// From left to right; they do not overlap.
QVector<Found> markers(const QString& text);

/// What stands between the fences of a marker.
QString wordOf(const QString& marker);

/// Whether the library gives a meaning to the marker.
bool isKnown(const QString& marker);

/// The known marker that the word between the fences is nearly the word of; empty when there is
/// none.
QString suggestion(const QString& word);

/// The first near miss of a text that holds no marker.
NearMiss nearMiss(const QString& text);

} // namespace MarkerScan
