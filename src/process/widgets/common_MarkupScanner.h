#pragma once

#include <QPair>
#include <QString>
#include <QStringView>
#include <QVector>

/// Takes rich text apart into texts and tags, in the way that QTextDocument reads it, in one pass.
/// Any text is accepted.
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

    /// Whether markup goes on behind the text. An entity may end where all ends.
    enum class End { OfPart, OfAll };

    /// The text must stay until the scanner is gone.
    common_MarkupScanner(QStringView text, End end);

    bool atEnd() const { return m_position >= m_text.size(); }

    /// The next token. Only to be asked for before the end.
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
