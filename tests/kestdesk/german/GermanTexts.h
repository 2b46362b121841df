// SPDX-License-Identifier: MIT
#pragma once

#include <Translations.h>

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QVector>
#include <QXmlStreamReader>
#include <QtTest>

/// The German texts of the program under test, as its files of translations have them, and what of
/// a window is none of them.
class GermanTexts
{
public:
    /// Installs them in the test's own process.
    static void install()
    {
        qputenv("KEST_LANGUAGE", "de");
        Translations::install();
    }

    /// Texts of the library and of Qt, and names, are allowed: they are not the application's.
    explicit GermanTexts(const QStringList& allowed) : m_allowed(allowed.begin(), allowed.end())
    {
        const QStringList files = QString::fromUtf8(KEST_TRANSLATION_FILES).split(QLatin1Char(','));
        for (const QString& file : files) {
            read(file);
        }
    }

    int size() const { return m_texts.size() + m_patterns.size(); }

    /// Whether a text is in German, a name, or a figure.
    bool knows(const QString& text) const
    {
        const QString plain = withoutMarks(text);
        static const QRegularExpression letters(QStringLiteral("\\p{L}{2}"));
        if (!plain.contains(letters) || m_allowed.contains(plain) || m_texts.contains(plain)) {
            return true;
        }
        return std::any_of(m_patterns.begin(), m_patterns.end(),
                           [&plain](const QRegularExpression& pattern) {
                               return pattern.match(plain).hasMatch();
                           });
    }

private:
    // As it is compared: without accelerators, the marks of tool tips and the shortcut.
    static QString withoutMarks(QString text)
    {
        static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
        text = text.section(QLatin1Char('\t'), 0, 0).remove(tags).remove(QLatin1Char('&'));
        return text.simplified();
    }

    void read(const QString& name)
    {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            qFatal("no translations in %s", qPrintable(name));
        }
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNextStartElement() && reader.name() == QLatin1String("translation")) {
                add(withoutMarks(reader.readElementText()));
            }
        }
    }

    // A text that is hardly more than its arguments says nothing about what is there.
    void add(const QString& text)
    {
        static const QRegularExpression argument(QStringLiteral("\\\\%[1-9]"));
        static const QRegularExpression letter(QStringLiteral("\\p{L}"));
        constexpr int leastLetters = 4;
        if (!text.contains(QLatin1Char('%'))) {
            m_texts.insert(text);
        } else if (text.count(letter) >= leastLetters) {
            const QString escaped =
                QRegularExpression::escape(text).replace(argument, QStringLiteral(".+"));
            m_patterns.append(QRegularExpression(QRegularExpression::anchoredPattern(escaped)));
        }
    }

    QSet<QString> m_allowed;
    QSet<QString> m_texts;
    QVector<QRegularExpression> m_patterns;
};
