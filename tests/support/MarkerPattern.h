// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>

#include <QRegularExpression>
#include <QString>
#include <QVector>

#include <utility>

/// The marker protocol read the slow way: with regular expressions that are built anew for every
/// chunk, step by step. The measure for common_KestProcessMessage in tests and benchmarks.
namespace MarkerPattern {

using Message = std::pair<common_IProcessMessage::Type, QString>;

inline const char* const bogusErrors[] = {
    ("Error posting writev, A request to send or receive data was disallowed because the socket "
     "had "
     "already been shut down in that direction with a previous shutdown call.(10058)"),
    "unable to post a write for the next command,",
    "sock error: Error = 10058",
    "unable to post a write of the closed_request command to the parent context.",
    "unable to close the stdin context.",
    "state machine failed.",
};

inline QString withoutBogusErrors(QString text)
{
    for (const char* each : bogusErrors) {
        text.remove(QString::fromLatin1(each));
    }
    return text;
}

// The pattern finds nothing in text with half a character (a surrogate without the other). None is
// part of a marker, so any other character in the place of surrogates gives the same matches.
inline QString searchable(QString text)
{
    for (QChar& character : text) {
        if (character.isSurrogate()) {
            character = QChar(QChar::ReplacementCharacter);
        }
    }
    return text;
}

inline QString percentage(const QString& body)
{
    const QRegularExpression pattern(QStringLiteral("([0-9]{0,3})%"));
    const QRegularExpressionMatch match = pattern.match(searchable(body));
    return QString::number((match.hasMatch() ? match.captured(1) : body).toInt());
}

inline Message message(const QString& marker, const QString& body)
{
    using Type = common_IProcessMessage;
    if (marker == QLatin1String("-*-linefeed-*-")) {
        return {Type::LineFeed, QString()};
    }
    if (marker == QLatin1String("-*-error-*-")) {
        return {Type::Error, body};
    }
    if (marker == QLatin1String("-*-warning-*-")) {
        return {Type::Warning, body};
    }
    if (marker == QLatin1String("-*-notice-*-")) {
        return {Type::Notice, body};
    }
    if (marker == QLatin1String("-*-percentage-*-")) {
        return {Type::Percentage, percentage(body)};
    }
    if (marker == QLatin1String("-*-total-percentage-*-")) {
        return {Type::TotalPercentage, percentage(body)};
    }
    if (marker == QLatin1String("-*-file-*-")) {
        return {Type::File, body.trimmed()};
    }
    if (marker == QLatin1String("-*-variable-*-")) {
        return {Type::Variable, body.trimmed()};
    }
    return {Type::Output, body};
}

inline QVector<Message> markedMessages(const QString& text, const QVector<int>& positions,
                                       const QVector<int>& lengths)
{
    QVector<Message> messages;
    QString body;
    for (int i = 0; i < lengths.size(); ++i) {
        const QString marker = text.mid(positions[i], lengths[i]);
        if (marker != QLatin1String("-*-linefeed-*-")) {
            const int start = positions[i] + lengths[i];
            const int count = positions[i + 1] - start;
            if (count > 0) {
                body = text.mid(start, count);
            }
        }
        messages.append(message(marker, body));
    }
    return messages;
}

inline QVector<Message> parse(QString text)
{
    text.remove(QLatin1Char('\r'));
    text.remove(QLatin1Char('\n'));
    if (text.trimmed().isEmpty()) {
        return {};
    }
    text = withoutBogusErrors(text);
    const QRegularExpression pattern(QStringLiteral("\\-\\*\\-[a-z]*+[\\-]?[a-z]*+\\-\\*\\-"));
    QVector<int> positions;
    QVector<int> lengths;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(searchable(text));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        positions.append(match.capturedStart());
        lengths.append(match.capturedLength());
    }
    if (positions.isEmpty()) {
        return {{common_IProcessMessage::Output, text}};
    }
    positions.append(text.size());
    return markedMessages(text, positions, lengths);
}

} // namespace MarkerPattern
