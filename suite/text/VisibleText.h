#pragma once

#include <QString>

namespace suite {

/// Text from outside (a file's name, what another program prints) as it is shown in a terminal or a
/// window. Characters that steer the line instead of being seen become visible: control characters
/// as U+FFFD, invisible ones, such as those that turn the direction of writing, as "<U+202E>", and
/// bytes that are not UTF-8 (see FileName::fromNative()) as "\xFF". Tabs stay, and so do the
/// joiners that scripts and emoji need.
///
/// The result is for reading only: a file is opened by the name that it has.
QString visibleText(const QString& text);

/// The same for text of several lines: its line feeds stay.
QString visibleLines(const QString& text);

/// A path with the separators of the system.
QString visiblePath(const QString& path);

/// What visibleText() makes of a file's name without its folders.
QString visibleFileName(const QString& path);

} // namespace suite
