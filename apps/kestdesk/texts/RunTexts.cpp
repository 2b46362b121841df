// SPDX-License-Identifier: MIT
#include "RunTexts.h"

#include <QCoreApplication>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunTexts)
};

struct Noun
{
    const char* noun;
    const char* one;
    const char* many;
};

// clang-format off
constexpr Noun nouns[] = {
    {"core",    QT_TRANSLATE_NOOP("RunTexts", "%1 core"),    QT_TRANSLATE_NOOP("RunTexts", "%1 cores")},
    {"error",   QT_TRANSLATE_NOOP("RunTexts", "%1 error"),   QT_TRANSLATE_NOOP("RunTexts", "%1 errors")},
    {"file",    QT_TRANSLATE_NOOP("RunTexts", "%1 file"),    QT_TRANSLATE_NOOP("RunTexts", "%1 files")},
    {"host",    QT_TRANSLATE_NOOP("RunTexts", "%1 host"),    QT_TRANSLATE_NOOP("RunTexts", "%1 hosts")},
    {"line",    QT_TRANSLATE_NOOP("RunTexts", "%1 line"),    QT_TRANSLATE_NOOP("RunTexts", "%1 lines")},
    {"model",   QT_TRANSLATE_NOOP("RunTexts", "%1 model"),   QT_TRANSLATE_NOOP("RunTexts", "%1 models")},
    {"notice",  QT_TRANSLATE_NOOP("RunTexts", "%1 notice"),  QT_TRANSLATE_NOOP("RunTexts", "%1 notices")},
    {"process", QT_TRANSLATE_NOOP("RunTexts", "%1 process"), QT_TRANSLATE_NOOP("RunTexts", "%1 processes")},
    {"record",  QT_TRANSLATE_NOOP("RunTexts", "%1 record"),  QT_TRANSLATE_NOOP("RunTexts", "%1 records")},
    {"second",  QT_TRANSLATE_NOOP("RunTexts", "%1 second"),  QT_TRANSLATE_NOOP("RunTexts", "%1 seconds")},
    {"segment", QT_TRANSLATE_NOOP("RunTexts", "%1 segment"), QT_TRANSLATE_NOOP("RunTexts", "%1 segments")},
    {"warning", QT_TRANSLATE_NOOP("RunTexts", "%1 warning"), QT_TRANSLATE_NOOP("RunTexts", "%1 warnings")},
};
// clang-format on

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
    const auto* const row =
        std::find_if(std::begin(nouns), std::end(nouns), [noun](const Noun& each) {
            return QLatin1String(each.noun) == QLatin1String(noun);
        });
    Q_ASSERT(row != std::end(nouns));
    return Texts::tr(count == 1 ? row->one : row->many).arg(count);
}

QString RunTexts::size(qint64 bytes)
{
    constexpr int thousand = 1000;
    if (bytes < 0) {
        return Texts::tr("missing");
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
