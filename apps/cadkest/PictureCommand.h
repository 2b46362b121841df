#pragma once

struct CommandLine;

/// Makes a picture of a model without a window. Tells what is to be told in the way of the suite's
/// components, on standard output, and returns the exit code.
int makePicture(const CommandLine& commandLine);
