#pragma once

#include <kest_foundation_export.h>

#include <QColor>

/// How well colours can be told from their background, by the rules of the WCAG.
namespace common_Contrast {

/// What text needs at least.
constexpr double least = 4.5;

/// From 1 for two equal colours to 21 for black and white.
KEST_FOUNDATION_EXPORT double ratio(const QColor& one, const QColor& other);

/// The colour itself where text in it can be read on the base, or else the nearest lighter or
/// darker shade that can.
KEST_FOUNDATION_EXPORT QColor readable(const QColor& colour, const QColor& base);

} // namespace common_Contrast
