// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

/// Queries the terminal behind a stream.
namespace TerminalDevice {

/// Whether the stream is a terminal that supports control sequences.
bool isTerminal(std::FILE* stream);

/// Whether the stream is any terminal, including one that only supports plain text.
bool isAnyTerminal(std::FILE* stream);

/// The width in columns; 80 if it is unknown.
int columns(std::FILE* stream);

} // namespace TerminalDevice
