// SPDX-License-Identifier: MIT
#include "TableLine.h"

#include <cmath>

namespace suite {

QByteArray tableLine(const QList<QByteArray>& cells)
{
    return cells.join(',') + '\n';
}

QByteArray tableNumber(double value, int digits)
{
    return std::isnan(value) ? QByteArray() : QByteArray::number(value, 'g', digits);
}

} // namespace suite
