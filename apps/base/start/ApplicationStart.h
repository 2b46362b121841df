#pragma once

struct ApplicationDescription;

/// The main function that the suite's applications share.
namespace ApplicationStart {

/// Reads the command line and does what it asks for, with an application object and services that
/// fit: a window needs a display, everything else works without. A command line that makes no sense
/// is refused with the exit code 2 and the reason on standard error. Returns the exit code: that of
/// the task, or 1 when the task succeeded but its output could not be written.
int run(const ApplicationDescription& application, int argc, char* argv[]);

} // namespace ApplicationStart
