#ifndef WINDOWCOMMAND_H
#define WINDOWCOMMAND_H

namespace cad {

struct CommandLine;

/// Shows the window until the user closes it. Returns the exit code.
int showWindow(const CommandLine& commandLine);

} // namespace cad

#endif
