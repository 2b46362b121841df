#pragma once

#include <cstdio>

/// What the system knows of the terminal behind a stream.
namespace TerminalDevice {

/// Whether there is a terminal that a person looks at and that understands control sequences.
bool isTerminal(std::FILE* stream);

/// Whether there is any terminal, also one that understands nothing but text.
bool isPerson(std::FILE* stream);

/// The width in columns; 80 where it is not known.
int columns(std::FILE* stream);

} // namespace TerminalDevice
