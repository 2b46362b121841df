#pragma once

struct CommandLine;

/// Shows the window until the user closes it. Returns the exit code.
int showWindow(const CommandLine& commandLine);
