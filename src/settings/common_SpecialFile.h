#pragma once

class QString;

/// What there is in the place of a file when it is none, as "a pipe" or "a directory"; links are
/// followed. Empty when it is a regular file, or when nothing is there.
///
/// Whoever opens a pipe waits for its other end, and a device may never end.
QString common_specialFileKind(const QString& path);
