// SPDX-License-Identifier: MIT
#pragma once

#include "MarkerPrinter.h"

#include <QByteArray>

#include <optional>

namespace suite {

/// One line of a component's output: its marker, if it begins with one, and the text behind it.
struct MarkerLine
{
    std::optional<Marker> marker;
    QString body;

    /// Reads a line without its line end.
    static MarkerLine parse(const QByteArray& line);

    /// The number of a percentage line; 0 if it has none.
    [[nodiscard]] int percentage() const;
};

} // namespace suite
