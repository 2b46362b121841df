// SPDX-License-Identifier: MIT
#include "common_MarkupScanner.h"

#include "common_MarkupEntity.h"

#include <QtVersion.h>

#include <algorithm>

namespace {

constexpr qsizetype longestEntity = 8;

} // namespace

common_MarkupScanner::common_MarkupScanner(QStringView text, End end) : m_text(text), m_end(end)
{}

common_MarkupScanner::Token common_MarkupScanner::next()
{
    if (hasNext(QLatin1Char('<'))) {
        return readTag();
    }
    Token token;
    token.text = readText();
    return token;
}

void common_MarkupScanner::skipBlanks()
{
    while (!atEnd() && m_text[m_position].isSpace() &&
           m_text[m_position] != QChar::ParagraphSeparator) {
        ++m_position;
    }
}

QString common_MarkupScanner::readText()
{
    QString text;
    while (!atEnd() && !hasNext(QLatin1Char('<'))) {
        const QChar character = m_text[m_position++];
        if (character == QLatin1Char('&')) {
            text += readEntity();
        } else {
            text += character;
        }
    }
    return text;
}

common_MarkupScanner::Token common_MarkupScanner::readTag()
{
    ++m_position;
    skipBlanks();
    if (hasNext(QLatin1Char('!'))) {
        skipComment();
        Token comment;
        comment.kind = Kind::Comment;
        return comment;
    }
    if (hasNext(QLatin1Char('/'))) {
        return readClosingTag();
    }
    Token tag;
    tag.kind = Kind::OpeningTag;
    tag.text = readWord().toLower();
    if (!atEnd() && m_text[m_position].isSpace()) {
        tag.attributes = readAttributes();
    }
    tag.isClosed = skipToTagEnd();
    return tag;
}

// Called at the "!". Without the begin of a comment, the next ">" ends the tag.
void common_MarkupScanner::skipComment()
{
    const qsizetype contents = m_position + (QtVersion::readsCommentsAsHtml ? 3 : 4);
    const bool isComment = hasNext(QLatin1Char('-'), 1) &&
                           (hasNext(QLatin1Char('-'), 2) || !QtVersion::readsCommentsAsHtml) &&
                           contents <= m_text.size();
    const QLatin1String end(isComment ? "-->" : ">");
    const qsizetype found =
        m_text.indexOf(end, std::min(isComment ? contents : m_position + 1, m_text.size()));
    m_position = found < 0 ? m_text.size() : found + end.size();
}

common_MarkupScanner::Token common_MarkupScanner::readClosingTag()
{
    ++m_position;
    Token tag;
    tag.kind = Kind::ClosingTag;
    tag.text = readWord().toLower().trimmed();
    skipToTagEnd();
    return tag;
}

// An attribute without a value has the value "1"; one with an empty value is ignored.
QVector<QPair<QString, QString>> common_MarkupScanner::readAttributes()
{
    QVector<QPair<QString, QString>> attributes;
    while (!atEnd()) {
        skipBlanks();
        if (hasNext(QLatin1Char('>')) || hasNext(QLatin1Char('/'))) {
            break;
        }
        const QString name = readWord().toLower();
        if (name.isEmpty()) {
            break;
        }
        QString value = QStringLiteral("1");
        skipBlanks();
        if (hasNext(QLatin1Char('='))) {
            ++m_position;
            skipBlanks();
            value = readWord();
        }
        if (!value.isEmpty()) {
            attributes.append({name, value});
        }
    }
    return attributes;
}

// Returns whether the skipped text contained a slash.
bool common_MarkupScanner::skipToTagEnd()
{
    bool hasSlash = false;
    while (!atEnd() && !hasNext(QLatin1Char('>'))) {
        hasSlash = hasSlash || hasNext(QLatin1Char('/'));
        ++m_position;
    }
    ++m_position;
    return hasSlash;
}

QString common_MarkupScanner::readWord()
{
    for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')}) {
        if (hasNext(quote)) {
            return readQuoted(quote);
        }
    }
    QString word;
    while (!atEnd()) {
        const QChar character = m_text[m_position];
        const bool isEnd = character == QLatin1Char('>') || character == QLatin1Char('<') ||
                           character == QLatin1Char('=') || character.isSpace() ||
                           (character == QLatin1Char('/') && hasNext(QLatin1Char('>'), 1));
        if (isEnd) {
            break;
        }
        ++m_position;
        word += character == QLatin1Char('&') ? readEntity() : QString(character);
    }
    return word;
}

// In single quotes, entities are not resolved, and a backslash escapes a quote.
QString common_MarkupScanner::readQuoted(QChar quote)
{
    const bool isDouble = quote == QLatin1Char('"');
    QString word;
    ++m_position;
    while (!atEnd()) {
        const QChar character = m_text[m_position++];
        const bool isKept = !isDouble && m_text[m_position - 2] == QLatin1Char('\\');
        if (character == quote && !isKept) {
            break;
        }
        if (isDouble && character == QLatin1Char('&')) {
            word += readEntity();
        } else {
            word += character;
        }
    }
    return word;
}

// Called behind the "&". Text that is not an entity is kept as it is.
QString common_MarkupScanner::readEntity()
{
    const QStringView rest = m_text.mid(m_position, longestEntity);
    qsizetype length = 0;
    while (length < rest.size() && rest[length] != QLatin1Char(';') && !rest[length].isSpace()) {
        ++length;
    }
    const bool endsHere = m_end == End::OfAll && m_position + length == m_text.size();
    if (endsHere || hasNext(QLatin1Char(';'), static_cast<int>(length))) {
        QString resolved = common_markupEntity(rest.left(length));
        if (!resolved.isNull()) {
            m_position = std::min(m_position + length + 1, m_text.size());
            return resolved;
        }
    }
    return QStringLiteral("&");
}

bool common_MarkupScanner::hasNext(QChar character, int ahead) const
{
    const qsizetype position = m_position + ahead;
    return position < m_text.size() && m_text[position] == character;
}
