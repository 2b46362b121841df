// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// Recognises paths of something else than a file. Opening a pipe blocks until its other end is
/// opened, and reading a device may never end.
namespace SpecialPath {

/// The kind of a path: "a directory", "a pipe", "a socket" or "a device". Empty for a regular file,
/// and if nothing exists at the path. Links are followed.
QString kind(const QString& path);

} // namespace SpecialPath
