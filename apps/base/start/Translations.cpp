// SPDX-License-Identifier: MIT
#include "Translations.h"

#include "ErrorOutput.h"
#include "LanguageChoice.h"

#include <PlainText.h>

#include <QtVersion.h>

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

#include <memory>

namespace {

const QLatin1String folder(":/translations");
const QLatin1String english("en");

QStringList files(const QString& pattern)
{
    return QDir(folder).entryList({pattern}, QDir::Files, QDir::Name);
}

void add(const QString& file, const QString& directory)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (translator->load(file, directory)) {
        QCoreApplication::installTranslator(translator.release());
    }
}

// A wish that cannot be fulfilled would look like a program that is not translated.
void reportMissing(const QString& wish)
{
    const QStringList known = QStringList(english) + Translations::languages();
    ErrorOutput::print(QStringLiteral("KEST_LANGUAGE is \"%1\"; there are texts in: %2")
                           .arg(suite::excerpt(wish), known.join(QLatin1String(", "))));
}

} // namespace

QStringList Translations::languages()
{
    QStringList result;
    const QStringList names = files(QStringLiteral("*.qm"));
    for (const QString& name : names) {
        result.append(name.section(QLatin1Char('_'), -1).section(QLatin1Char('.'), 0, 0));
    }
    result.removeDuplicates();
    return result;
}

// Of several translations of a text, the last one installed counts.
void Translations::install()
{
    const QString language = LanguageChoice::of(LanguageChoice::wanted(), languages());
    if (language.isEmpty() && !LanguageChoice::ofUser().isEmpty()) {
        reportMissing(LanguageChoice::ofUser());
    }
    if (!languages().contains(language)) {
        return;
    }
    add(QStringLiteral("qtbase_%1").arg(language), QtVersion::translationsFolder());
    const QStringList own = files(QStringLiteral("*_%1.qm").arg(language));
    for (const QString& name : own) {
        add(name, folder);
    }
}

void Translations::remove()
{
    const auto installed = QCoreApplication::instance()->findChildren<QTranslator*>();
    qDeleteAll(installed); // which removes them
}
