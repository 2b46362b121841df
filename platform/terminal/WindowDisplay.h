// SPDX-License-Identifier: MIT
#pragma once

/// The display for windows.
namespace WindowDisplay {

/// Whether there is a display. Without one, Qt aborts a program that uses windows.
bool exists();

} // namespace WindowDisplay
