#include "RunTexts.h"

namespace {

QString twoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString minutesAndSeconds(const QString& minutes, qint64 seconds)
{
    return minutes + QLatin1Char(':') + twoDigits(seconds % 60);
}

} // namespace

QString RunTexts::clockTime(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return QString::number(seconds / 3600) + QLatin1Char(':') +
           minutesAndSeconds(twoDigits(seconds / 60 % 60), seconds);
}

QString RunTexts::shortClockTime(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return seconds < 3600 ? minutesAndSeconds(QString::number(seconds / 60), seconds)
                          : clockTime(milliseconds);
}

QString RunTexts::duration(qint64 milliseconds)
{
    return milliseconds < 60000
               ? QStringLiteral("%1 s").arg(static_cast<double>(milliseconds) / 1000, 0, 'f', 1)
               : clockTime(milliseconds);
}

QString RunTexts::counted(int count, const char* noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun),
                                                    QLatin1String(count == 1 ? "" : "s"));
}

QString RunTexts::size(qint64 bytes)
{
    constexpr int thousand = 1000;
    if (bytes < 0) {
        return QStringLiteral("missing");
    }
    if (bytes < thousand) {
        return QStringLiteral("%1 B").arg(bytes);
    }
    auto value = static_cast<double>(bytes) / thousand;
    const char* unit = "kB";
    for (const char* const larger : {"MB", "GB", "TB"}) {
        if (value >= thousand) {
            value /= thousand;
            unit = larger;
        }
    }
    return QStringLiteral("%1 %2").arg(value, 0, 'f', 1).arg(QLatin1String(unit));
}
