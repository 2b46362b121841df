// SPDX-License-Identifier: MIT
#pragma once

/// The standard output of this program.
namespace suite::StandardOutput {

/// Flushes the buffer. False if this or an earlier write has failed, for example because the disk
/// is full: then output is lost. To be called at the end of a program.
bool flush();

} // namespace suite::StandardOutput
