#pragma once

class QString;

/// Distinguishes files from other things that a path may lead to. Opening a pipe waits for its
/// other end, and reading a device may never end.
namespace SpecialPath {

/// What the path leads to when that is not a regular file: "a directory", "a pipe", "a socket" or
/// "a device". Empty for a regular file, and when nothing is there. Links are followed.
QString kind(const QString& path);

} // namespace SpecialPath
