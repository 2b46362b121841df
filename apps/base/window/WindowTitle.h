// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Titles of windows that show a file, which distinguish files of the same name.
namespace WindowTitle {

/// The file's name, its folder in parentheses, and the tail, such as " - kestdesk". The home folder
/// is written "~", and a long folder is cut at its beginning. Qt's placeholder for changes, "[*]",
/// is only effective in the tail.
QString of(const QString& path, const QString& tail);

} // namespace WindowTitle
