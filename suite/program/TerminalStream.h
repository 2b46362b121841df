#pragma once

#include <cstdio>

namespace suite {

/// Whether somebody reads or types at the stream, on whatever kind of terminal.
bool isTerminal(std::FILE* stream);

} // namespace suite
