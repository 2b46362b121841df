#include "RunTimes.h"

namespace {

constexpr int sixty = 60;
constexpr int millisecondsPerSecond = 1000;

QString twoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

QString RunTimes::text(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / millisecondsPerSecond;
    const qint64 minutes = seconds / sixty;
    const qint64 hours = minutes / sixty;
    const QString tail = QLatin1Char(':') + twoDigits(seconds % sixty);
    return hours > 0 ? QString::number(hours) + QLatin1Char(':') + twoDigits(minutes % sixty) + tail
                     : QString::number(minutes) + tail;
}
