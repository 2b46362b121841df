#pragma once

/// A write that fails must be an error that the program can handle.
namespace WriteFailures {

/// From now on a closed pipe or an exceeded quota fails the write instead of ending the program.
/// Call it before the application object is made.
void report();

} // namespace WriteFailures
