// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"

#include <QByteArray>

#include <optional>

namespace suite {

/// One solved frequency as a line of a file of partial results: the cells of the table of results,
/// the frequency's index, a checksum, and the engine's output.
struct PartialRow
{
    int index = 0; ///< of the frequency in the sweep, from 0
    QByteArray packedOutput;

    /// The names of the columns, as a line with its line end.
    static QByteArray columns();

    /// The line of a result, with its line end. The frequency is in MHz.
    static QByteArray line(int index, double frequency, const EngineOutput& output);

    /// Parses a line with its line end; nothing if it is incomplete or damaged.
    static std::optional<PartialRow> parse(const QByteArray& line);

    [[nodiscard]] EngineOutput output() const;
};

} // namespace suite
