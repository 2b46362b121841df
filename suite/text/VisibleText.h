// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// Escapes text from outside (a file name, output of another program) for a terminal or a window.
/// Control characters become U+FFFD, invisible characters, such as those that change the writing
/// direction, "<U+202E>", and bytes that are not UTF-8 (see FileName::fromNative()) "\xFF". Tabs
/// stay, and so do the joiners that scripts and emoji need.
///
/// The result is for display only: files are opened by their original names.
QString visibleText(const QString& text);

/// The same for text of several lines: its line feeds stay.
QString visibleLines(const QString& text);

/// A path with the separators of the system.
QString visiblePath(const QString& path);

/// visibleText() of a file's name without its folders.
QString visibleFileName(const QString& path);

} // namespace suite
