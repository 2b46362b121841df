#pragma once

#include <QString>

#include <string_view>

namespace suite {

/// One line of a machines file: "host" or "host:count", or nothing. Blanks may be around both, an
/// address of IPv6 stands in brackets, and "#" begins a comment.
struct MachinesLine
{
    std::string_view text; ///< without blanks around it and without the comment
    std::string_view host; ///< without brackets; empty where the line names none, or is wrong
    int count = 0;         ///< of processes
    QString error;         ///< empty when nothing is wrong

    /// The largest count of one host: more is a slip.
    static constexpr int mostProcesses = 4096;

    /// The line without its end. Its views are into what was given.
    static MachinesLine parse(std::string_view line);
};

} // namespace suite
