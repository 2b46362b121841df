#pragma once

/// The display that windows are shown on.
namespace Display {

/// Whether there is one. Qt ends a program that makes windows without it.
bool exists();

} // namespace Display
