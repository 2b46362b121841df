// SPDX-License-Identifier: MIT
#include "MarkerLine.h"

namespace suite {

MarkerLine MarkerLine::parse(const QByteArray& line)
{
    MarkerLine result;
    result.body = QString::fromUtf8(line);
    result.marker = markerOf(result.body);
    if (result.marker) {
        result.body.remove(0, markerText(*result.marker).size());
    }
    return result;
}

int MarkerLine::percentage() const
{
    return body.section(QLatin1Char('%'), 0, 0).toInt();
}

} // namespace suite
