// SPDX-License-Identifier: MIT
#include "SolvedImpedance.h"

#include <ResultTable.h>

#include <QFileInfo>

namespace suite {

SolvedImpedance SolvedImpedance::read(const QString& tablePath)
{
    const ResultTable table = ResultTable::read(tablePath);
    if (!table.error.isEmpty()) {
        return {std::nullopt, QStringLiteral("the result file '%1' cannot be used, %2")
                                  .arg(QFileInfo(tablePath).fileName(), table.error)};
    }
    const std::optional<Impedance> impedance = table.points.first().impedance();
    return {impedance, impedance ? QString() : QStringLiteral("it gave no impedance")};
}

} // namespace suite
