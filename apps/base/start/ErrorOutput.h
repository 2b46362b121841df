// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// An application's own messages on standard error, one a line, behind its name. Names in the text
/// are made visible.
namespace ErrorOutput {

void print(const QString& text);

/// Prints why a command line is invalid, and where to read more. The hint, a sentence, may be
/// empty.
void printRefusal(const QString& text, const QString& hint);

} // namespace ErrorOutput
