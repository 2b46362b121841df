// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

/// Reports a broken precondition and ends the process.
///
/// Logs "%s (%d): Assertion failed: %s" with the file, the line and the text through Qt's fatal
/// message handler. Use COMMON_ASSERT_AT instead of calling this.
KEST_FOUNDATION_EXPORT void common_assertionFailed(const char* text, const char* file, int line);

/// Asserts, in every kind of build, what a caller must guarantee.
///
/// The text, the file and the line are printed exactly as given: support staff search for them, so
/// they stay as they are when the code around them moves.
#define COMMON_ASSERT_AT(condition, text, file, line)                                              \
    (static_cast<bool>(condition) ? static_cast<void>(0) : common_assertionFailed(text, file, line))
