// SPDX-License-Identifier: MIT
#pragma once

#include <QPair>
#include <QString>
#include <QStringView>
#include <QVector>

/// Splits rich text into texts and tags in one pass, as QTextDocument does. Any text is accepted.
class common_MarkupScanner
{
public:
    enum class Kind { Text, OpeningTag, ClosingTag, Comment };

    struct Token
    {
        Kind kind = Kind::Text;
        QString text; ///< of a text, with its entities resolved; of a tag its name in lower case
        QVector<QPair<QString, QString>> attributes; ///< with names in lower case
        bool isClosed = false;                       ///< an opening tag that also closes itself
    };

    /// Whether other markup follows the text. An entity may end at the end of everything.
    enum class End { OfPart, OfAll };

    /// The text must outlive the scanner.
    common_MarkupScanner(QStringView text, End end);

    bool atEnd() const { return m_position >= m_text.size(); }

    /// The next token. Call it only before the end.
    Token next();

    void skipBlanks();

private:
    QString readText();
    Token readTag();
    void skipComment();
    Token readClosingTag();
    QVector<QPair<QString, QString>> readAttributes();
    bool skipToTagEnd();
    QString readWord();
    QString readQuoted(QChar quote);
    QString readEntity();
    bool hasNext(QChar character, int ahead = 0) const;

    QStringView m_text;
    End m_end;
    qsizetype m_position = 0;
};
