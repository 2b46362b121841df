// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

namespace suite {

/// Whether the stream is a terminal of any kind.
bool isTerminal(std::FILE* stream);

/// Whether the reader of the stream, such as the other end of a pipe, has closed it. False if the
/// system cannot tell before something is written.
bool hasLostReader(std::FILE* stream);

} // namespace suite
