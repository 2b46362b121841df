#pragma once

#include "EngineOutput.h"

#include <QByteArray>

#include <optional>

namespace suite {

/// One solved frequency as a line of a file of partial results: the cells of the table of results,
/// the frequency's number, a checksum, and what the engine wrote.
struct PartialRow
{
    int index = 0; ///< of the frequency in the sweep, from 0
    QByteArray packedOutput;

    /// The columns, as a line with its end.
    static QByteArray columns();

    /// The line of a result, with its end. The frequency is in MHz.
    static QByteArray line(int index, double frequency, const EngineOutput& output);

    /// Reads a line with its end; nothing when it is cut off or damaged.
    static std::optional<PartialRow> parse(const QByteArray& line);

    [[nodiscard]] EngineOutput output() const;
};

} // namespace suite
