// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// The use of files by other programs.
namespace suite::FileUse {

/// Before a file is replaced: waits for programs that have it open, where it cannot be replaced
/// meanwhile, but for less than a second. Most have it open for a few milliseconds only.
void waitForEnd(const QString& path);

} // namespace suite::FileUse
