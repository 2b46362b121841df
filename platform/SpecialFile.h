#pragma once

class QString;

/// Tells files from what else may have a file's name. Opening a pipe waits for its other end, and
/// reading a device may never end.
namespace SpecialFile {

/// What the path leads to when that is not a regular file: "a directory", "a pipe", "a socket" or
/// "a device". Empty for a regular file, and when nothing is there. Links are followed.
QString kind(const QString& path);

} // namespace SpecialFile
