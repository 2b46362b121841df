// SPDX-License-Identifier: MIT
#pragma once

/// The names of executable files on this platform.
namespace ProgramName {

/// The suffix of executable files, with its dot; may be empty.
const char* suffix();

} // namespace ProgramName
