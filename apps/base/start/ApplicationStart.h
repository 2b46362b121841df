// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

struct ApplicationDescription;

/// The common main function of the applications.
namespace ApplicationStart {

/// Parses the command line and runs its task, with the application object and the services that it
/// needs: only windows need a display. For an invalid command line, prints the reason to standard
/// error and returns 2. Otherwise returns the exit code of the task, or 1 if the task succeeded but
/// its output could not be written. The function makes the description: it is called again as soon
/// as the texts can be translated.
int run(const std::function<ApplicationDescription()>& describe, int argc, char* argv[]);

} // namespace ApplicationStart
