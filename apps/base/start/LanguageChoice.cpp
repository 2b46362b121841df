// SPDX-License-Identifier: MIT
#include "LanguageChoice.h"

#include <QLocale>

namespace {

const QLatin1String english("en");

// Programs with this locale are read by other programs. "C.UTF-8" is also the locale of containers,
// where a list of languages is set on purpose.
bool isPlainLocale()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray locale = qgetenv(variable);
        if (!locale.isEmpty()) {
            return locale == "C" || locale == "POSIX";
        }
    }
    return false;
}

// "de" of "de-AT" and of "de_AT.UTF-8".
QString languageOf(const QString& locale)
{
    int size = 0;
    while (size < locale.size() && locale.at(size).isLetter()) {
        ++size;
    }
    return locale.left(size).toLower();
}

} // namespace

QString LanguageChoice::ofUser()
{
    return qEnvironmentVariable("KEST_LANGUAGE");
}

QStringList LanguageChoice::wanted()
{
    if (!ofUser().isEmpty()) {
        return {ofUser()};
    }
    return isPlainLocale() ? QStringList() : QLocale::system().uiLanguages();
}

QString LanguageChoice::of(const QStringList& wanted, const QStringList& available)
{
    for (const QString& each : wanted) {
        QString language = languageOf(each);
        if (language == QLatin1String("c") || language == QLatin1String("posix")) {
            return english;
        }
        if (language == english || available.contains(language)) {
            return language;
        }
    }
    return QString();
}
