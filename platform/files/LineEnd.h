// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The ends of lines in text files.
namespace LineEnd {

/// A line as it must be written to a file that was opened in text mode, so that its end appears in
/// the file as it is here: on Windows, text mode writes "\n" as "\r\n".
QString inTextMode(const QString& line);

} // namespace LineEnd
