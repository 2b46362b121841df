#pragma once

#include "MarkerPrinter.h"

#include <QByteArray>

#include <optional>

namespace suite {

/// One line as a component printed it: its marker, if it has one in front, and what stands behind.
struct MarkerLine
{
    std::optional<Marker> marker;
    QString body;

    /// Reads a line without its line end.
    static MarkerLine parse(const QByteArray& line);

    /// The number of a percentage line, 0 when there is none.
    [[nodiscard]] int percentage() const;
};

} // namespace suite
