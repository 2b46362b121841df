// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

class common_PropertyMetaData;

/// Checks launch options that users enter in a window or a terminal: values that cannot work or
/// would have no effect are refused. Values from the settings file are not checked.
namespace OptionRules {

struct Range
{
    int smallest;
    int largest;
};

/// The range of a numeric option: the numbers that its component accepts.
Range range(const common_PropertyMetaData& metaData);

/// The error in the text as a sentence; empty if the text is valid.
QString problem(const common_PropertyMetaData& metaData, const QString& text);

/// Why the option must not be empty while it is switched on, as a sentence; empty if it may.
QString emptyProblem(const common_PropertyMetaData& metaData);

/// Whether an option of texts may have several lines.
bool mayHaveLines(const common_PropertyMetaData& metaData);

/// A description of the values that an option of texts or of plain numbers accepts.
QString accepted(const common_PropertyMetaData& metaData);

} // namespace OptionRules
