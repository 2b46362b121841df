// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

#include <QColor>

/// Contrast of colours according to the WCAG.
namespace common_Contrast {

/// The least contrast ratio for text.
constexpr double least = 4.5;

/// The contrast ratio: from 1 for two equal colours to 21 for black and white.
KEST_FOUNDATION_EXPORT double ratio(const QColor& one, const QColor& other);

/// A colour that is readable on the base: the colour itself, if its contrast suffices, or else the
/// nearest lighter or darker shade.
KEST_FOUNDATION_EXPORT QColor readable(const QColor& colour, const QColor& base);

} // namespace common_Contrast
