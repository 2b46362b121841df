// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>

/// The German texts of applications, from the sources of their translations.
class GermanTexts
{
public:
    /// The names are those of folders in `apps`, such as "base".
    explicit GermanTexts(const QStringList& applications)
    {
        for (const QString& name : applications) {
            read(QStringLiteral(KEST_APPLICATIONS "/%1/translations/%1_de.ts").arg(name));
        }
    }

    /// How many there are.
    int count() const { return m_patterns.size(); }

    /// Those of the texts that are no translation and have letters, in the form in which they are
    /// compared. The allowed ones, such as names and texts of the library, are patterns of whole
    /// texts.
    QStringList untranslated(const QStringList& shown, const QStringList& allowed) const
    {
        QStringList result;
        for (const QString& text : shown) {
            const QString plain = plainText(text);
            if (plain.contains(QRegularExpression(QStringLiteral("[A-Za-z]{2}"))) &&
                !isTranslation(plain) && !matchesOne(plain, allowed)) {
                result.append(plain);
            }
        }
        return result;
    }

private:
    // Without accelerators, shortcuts and what Qt leaves out of tool tips of actions.
    static QString plainText(QString text)
    {
        text = text.section(QLatin1Char('\t'), 0, 0);
        text.replace(QRegularExpression(QStringLiteral("&(?=\\S)")), QString());
        text.replace(QRegularExpression(QStringLiteral("\\s*(\\.\\.\\.|\u2026)$")), QString());
        return text.trimmed();
    }

    bool isTranslation(const QString& text) const
    {
        return std::any_of(
            m_patterns.begin(), m_patterns.end(),
            [&text](const QRegularExpression& each) { return each.match(text).hasMatch(); });
    }

    static bool matchesOne(const QString& text, const QStringList& patterns)
    {
        return std::any_of(patterns.begin(), patterns.end(), [&text](const QString& pattern) {
            return QRegularExpression(QRegularExpression::anchoredPattern(pattern))
                .match(text)
                .hasMatch();
        });
    }

    void read(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            qFatal("no translations %s", qPrintable(path));
        }
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement &&
                reader.name() == QLatin1String("translation")) {
                add(reader.readElementText());
            }
        }
    }

    // Anything may stand for a placeholder, but not for a whole text.
    void add(const QString& translation)
    {
        const QString plain = plainText(translation);
        QString fixed = plain;
        fixed.remove(QRegularExpression(QStringLiteral("%L?[1-9]")));
        if (!fixed.contains(QRegularExpression(QStringLiteral("\\w{2}")))) {
            return;
        }
        QString pattern = QRegularExpression::escape(plain);
        pattern.replace(QRegularExpression(QStringLiteral("\\\\%L?[1-9]")), QStringLiteral(".*"));
        m_patterns.append(QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                             QRegularExpression::DotMatchesEverythingOption |
                                                 QRegularExpression::UseUnicodePropertiesOption));
    }

    QVector<QRegularExpression> m_patterns;
};
