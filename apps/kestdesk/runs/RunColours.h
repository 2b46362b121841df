// SPDX-License-Identifier: MIT
#pragma once

#include <RunSummary.h>
#include <Terminal.h>

/// The colours of runs in a terminal.
namespace RunColours {

inline Terminal::Colour of(RunSummary::Line::Kind kind)
{
    using Colour = Terminal::Colour;
    // Indexed by RunSummary::Line::Kind.
    constexpr Colour colours[] = {Colour::None, Colour::Green,  Colour::Red, Colour::Yellow,
                                  Colour::Red,  Colour::Yellow, Colour::Cyan};
    return colours[static_cast<int>(kind)];
}

} // namespace RunColours
