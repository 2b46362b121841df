#pragma once

#include <cstdio>

namespace suite {

/// Whether somebody reads or types at the stream, on whatever kind of terminal.
bool isTerminal(std::FILE* stream);

/// Whether the reader of the stream, such as the other end of a pipe, has closed it. False where
/// the system cannot tell before something is written.
bool hasLostReader(std::FILE* stream);

} // namespace suite
