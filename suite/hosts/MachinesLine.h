// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace suite {

/// One line of a machines file: "host" or "host:count", or nothing. Blanks around both are ignored,
/// IPv6 addresses are in brackets, and "#" begins a comment.
struct MachinesLine
{
    std::string_view text; ///< without blanks around it and without the comment
    std::string_view host; ///< without brackets; empty if the line has none or has an error
    int count = 0;         ///< of processes
    QString error;         ///< empty when nothing is wrong

    /// The largest count of one host: more is taken for a typing error.
    static constexpr int mostProcesses = 4096;

    /// Parses a line without its line end. The views refer to the argument.
    static MachinesLine parse(std::string_view line);
};

} // namespace suite
