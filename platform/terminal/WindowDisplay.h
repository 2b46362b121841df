#pragma once

/// The screen that windows come on.
namespace WindowDisplay {

/// Whether there is one. Where there is none, Qt ends a program that asks for windows.
bool exists();

} // namespace WindowDisplay
