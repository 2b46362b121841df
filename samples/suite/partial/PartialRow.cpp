// SPDX-License-Identifier: MIT
#include "PartialRow.h"

#include <ResultTable.h>
#include <TableLine.h>

#include <QCryptographicHash>

namespace suite {

namespace {

constexpr int checksumDigits = 16;

// The cells that follow those of the table of results.
constexpr int numberCell = 1 + quantityCount;
constexpr int checksumCell = numberCell + 1;
constexpr int outputCell = checksumCell + 1;
constexpr int cellCount = outputCell + 1;

// The checksum of all cells but its own.
QByteArray checksum(QList<QByteArray> cells)
{
    cells[checksumCell].clear();
    return QCryptographicHash::hash(cells.join(','), QCryptographicHash::Sha256)
        .toHex()
        .left(checksumDigits);
}

} // namespace

QByteArray PartialRow::columns()
{
    return tableLine(ResultTable::columns() + QList<QByteArray>{"number", "checksum", "output"});
}

QByteArray PartialRow::line(int index, double frequency, const EngineOutput& output)
{
    const ResultPoint point(
        frequency, output.hasImpedance() ? std::make_optional(output.impedance()) : std::nullopt);
    QList<QByteArray> cells = ResultTable::cells(point);
    cells << QByteArray::number(index + 1) << QByteArray()
          << qCompress(output.stableBytes()).toBase64();
    cells[checksumCell] = checksum(cells);
    return tableLine(cells);
}

std::optional<PartialRow> PartialRow::parse(const QByteArray& line)
{
    const QList<QByteArray> cells = line.left(line.size() - 1).split(',');
    const bool isWhole = line.endsWith('\n') && cells.size() == cellCount &&
                         cells.at(checksumCell) == checksum(cells);
    if (!isWhole) {
        return std::nullopt;
    }
    return PartialRow{cells.at(numberCell).toInt() - 1,
                      QByteArray::fromBase64(cells.at(outputCell))};
}

EngineOutput PartialRow::output() const
{
    return EngineOutput(qUncompress(packedOutput));
}

} // namespace suite
