#pragma once

/// The screen that windows come on.
namespace Display {

/// Whether there is one. Where there is none, Qt ends a program that asks for windows.
bool exists();

} // namespace Display
