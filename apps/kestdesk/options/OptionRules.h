#pragma once

#include <QString>

#include <optional>

class common_PropertyMetaData;

/// What a launch option may be when a person gives it, in a window or in a terminal: what cannot
/// work, or would be without effect, is refused. The settings file is read with whatever is in it.
namespace OptionRules {

struct Range
{
    int smallest;
    int largest;
};

/// The numbers that an option of numbers may be: those that its component accepts.
Range range(const common_PropertyMetaData& metaData);

/// What is wrong with the text, as a sentence; empty when it is right.
QString problem(const common_PropertyMetaData& metaData, const QString& text);

/// Why the option must not be empty while it is switched on, as a sentence; empty when it may.
QString emptyProblem(const common_PropertyMetaData& metaData);

/// Whether an option of texts may have several lines.
bool mayHaveLines(const common_PropertyMetaData& metaData);

/// What an option of texts or of plain numbers accepts, in words.
QString accepted(const common_PropertyMetaData& metaData);

} // namespace OptionRules
