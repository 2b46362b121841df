// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// Escapes text from outside (deck, file name, option) for one line of output: without control
/// characters, line breaks and markers.
QString plainText(const QString& text);

/// Escapes a file name for a reader that opens it: only line breaks and markers are replaced.
QString carriedName(const QString& name);

/// plainText(), cut to a length that suits an error message.
QString excerpt(const QString& text);

/// plainText() with every colon replaced, for texts that readers split at colons.
QString withoutColons(const QString& text);

} // namespace suite
