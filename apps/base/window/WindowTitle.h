#pragma once

#include <QString>

/// Titles of windows that show a file, so that windows of files with one name can be told apart.
namespace WindowTitle {

/// The file's name, its folder in parentheses, and the tail, such as " - kestdesk". The user's home
/// folder is "~", and of a long folder the end is shown. Qt's sign for changes, "[*]", means
/// something in the tail only.
QString of(const QString& path, const QString& tail);

} // namespace WindowTitle
