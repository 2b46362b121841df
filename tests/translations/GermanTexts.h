// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QVector>
#include <QXmlStreamReader>

#include <algorithm>
#include <iterator>

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

    /// Those of the texts that are not German, in the form in which they are compared. A text is
    /// German if it is a translation whose placeholders stand for German texts, or consists of such
    /// texts. The allowed ones, such as names and texts of the library, are patterns of whole
    /// texts.
    QStringList untranslated(const QStringList& shown, const QStringList& allowed) const
    {
        const Search search{m_patterns, patternsOf(allowed), {}};
        QStringList result;
        for (const QString& text : shown) {
            const QString plain = plainText(text);
            if (!search.isKnown(plain)) {
                result.append(plain);
            }
        }
        return result;
    }

private:
    using Patterns = QVector<QRegularExpression>;

    static bool matchesOne(const QString& text, const Patterns& patterns)
    {
        return std::any_of(
            patterns.begin(), patterns.end(),
            [&text](const QRegularExpression& each) { return each.match(text).hasMatch(); });
    }

    struct Search
    {
        const Patterns& translations;
        Patterns allowed;
        mutable QHash<QString, bool> known; // parts are looked at again and again

        bool isKnown(const QString& text) const
        {
            const auto found = known.constFind(text);
            if (found != known.constEnd()) {
                return *found;
            }
            static const QRegularExpression word(QStringLiteral("\\p{L}{2}"));
            const bool result = !text.contains(word) || matchesOne(text, allowed) ||
                                isTranslation(text) || consistsOfKnown(text);
            known.insert(text, result);
            return result;
        }

        bool isTranslation(const QString& text) const
        {
            return std::any_of(
                translations.begin(), translations.end(), [&](const QRegularExpression& each) {
                    const QRegularExpressionMatch match = each.match(text);
                    return match.hasMatch() && areKnown(match.capturedTexts().mid(1));
                });
        }

        bool areKnown(const QStringList& texts) const
        {
            return std::all_of(texts.begin(), texts.end(),
                               [&](const QString& each) { return isKnown(each.trimmed()); });
        }

        // Sentences behind each other, and lists.
        bool consistsOfKnown(const QString& text) const
        {
            static const QStringList separators = {
                QStringLiteral("\n"),        QStringLiteral(". "), QStringLiteral(": "),
                QStringLiteral(", "),        QStringLiteral("; "), QStringLiteral(" - "),
                QStringLiteral("  \u00b7  ")};
            const bool isSentence = text.endsWith(QLatin1Char('.'));
            if (isSentence ? isKnown(text.chopped(1)) : isTranslation(text + QLatin1Char('.'))) {
                return true;
            }
            return std::any_of(separators.begin(), separators.end(), [&](const QString& separator) {
                return text.contains(separator) && areKnown(text.split(separator));
            });
        }
    };

    // Without markup, accelerators, shortcuts and what Qt leaves out of tool tips of actions.
    static QString plainText(QString text)
    {
        if (Qt::mightBeRichText(text)) {
            text = QTextDocumentFragment::fromHtml(text).toPlainText();
        }
        text = text.section(QLatin1Char('\t'), 0, 0);
        text.replace(QRegularExpression(QStringLiteral("&(?=\\S)")), QString());
        text.replace(QRegularExpression(QStringLiteral("\\s*(\\.\\.\\.|\u2026)$")), QString());
        return text.trimmed();
    }

    static QRegularExpression patternOf(const QString& pattern)
    {
        return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                  QRegularExpression::DotMatchesEverythingOption |
                                      QRegularExpression::UseUnicodePropertiesOption);
    }

    static Patterns patternsOf(const QStringList& patterns)
    {
        Patterns result;
        std::transform(patterns.begin(), patterns.end(), std::back_inserter(result), patternOf);
        return result;
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

    // A text that is nothing but placeholders says nothing about what stands there. Clauses become
    // sentences by a capital.
    void add(const QString& translation)
    {
        const QString plain = plainText(translation);
        QString fixed = plain;
        fixed.remove(QRegularExpression(QStringLiteral("%L?[1-9]")));
        if (!fixed.contains(QRegularExpression(QStringLiteral("\\w{2}")))) {
            return;
        }
        QString pattern = QRegularExpression::escape(plain);
        pattern.replace(QRegularExpression(QStringLiteral("\\\\%L?[1-9]")),
                        QStringLiteral("(.*?)"));
        QRegularExpression expression = patternOf(pattern);
        expression.setPatternOptions(expression.patternOptions() |
                                     QRegularExpression::CaseInsensitiveOption);
        m_patterns.append(expression);
    }

    Patterns m_patterns;
};
