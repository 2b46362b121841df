// SPDX-License-Identifier: MIT
#include <common_KestProcessMessage.h>

#include "common_LineEnds.h"

#include <QStringMatcher>
#include <QStringView>

#include <algorithm>
#include <array>

namespace {

enum class BodyUse { Unchanged, Trimmed, Number, Dropped };

struct MarkerMeaning
{
    QLatin1String marker;
    common_IProcessMessage::Type type;
    BodyUse bodyUse;
};

// clang-format off
const std::array<MarkerMeaning, 8> markerMeanings = {{
    {QLatin1String("-*-linefeed-*-"),         common_IProcessMessage::LineFeed,        BodyUse::Dropped},
    {QLatin1String("-*-error-*-"),            common_IProcessMessage::Error,           BodyUse::Unchanged},
    {QLatin1String("-*-warning-*-"),          common_IProcessMessage::Warning,         BodyUse::Unchanged},
    {QLatin1String("-*-notice-*-"),           common_IProcessMessage::Notice,          BodyUse::Unchanged},
    {QLatin1String("-*-percentage-*-"),       common_IProcessMessage::Percentage,      BodyUse::Number},
    {QLatin1String("-*-total-percentage-*-"), common_IProcessMessage::TotalPercentage, BodyUse::Number},
    {QLatin1String("-*-file-*-"),             common_IProcessMessage::File,            BodyUse::Trimmed},
    {QLatin1String("-*-variable-*-"),         common_IProcessMessage::Variable,        BodyUse::Trimmed},
}};
const MarkerMeaning otherMarker =
    {QLatin1String(),                         common_IProcessMessage::Output,          BodyUse::Unchanged};

// The parallel runtime prints these when it closes its sockets at the end of a successful run.
const std::array<QLatin1String, 6> bogusParallelRunErrors = {
    QLatin1String("Error posting writev, A request to send or receive data was disallowed because the socket had already been shut down in that direction with a previous shutdown call.(10058)"),
    QLatin1String("unable to post a write for the next command,"),
    QLatin1String("sock error: Error = 10058"),
    QLatin1String("unable to post a write of the closed_request command to the parent context."),
    QLatin1String("unable to close the stdin context."),
    QLatin1String("state machine failed."),
};
// clang-format on

bool isLetter(QChar character)
{
    return character >= QLatin1Char('a') && character <= QLatin1Char('z');
}

qsizetype behindLetters(QStringView text, qsizetype position)
{
    const auto* const end = std::find_if_not(text.cbegin() + position, text.cend(), isLetter);
    return end - text.cbegin();
}

bool isFence(QStringView text, qsizetype position)
{
    return text.mid(position, 3) == QLatin1String("-*-");
}

struct Marker
{
    qsizetype position = -1; // -1: no marker
    qsizetype end = -1;      // behind the marker
};

// The marker that begins with the fence at the position. There is at most one: one character
// distinguishes the hyphen in the middle from the closing fence.
Marker markerAt(QStringView text, qsizetype position)
{
    qsizetype end = behindLetters(text, position + 3);
    if (!isFence(text, end) && end < text.size() && text[end] == QLatin1Char('-')) {
        end = behindLetters(text, end + 1);
    }
    return isFence(text, end) ? Marker{position, end + 3} : Marker();
}

// The first marker at or behind the position; the same as a search for the regular expression
// "\-\*\-[a-z]*[\-]?[a-z]*\-\*\-", many times faster. Every marker has a star behind its first
// character, and no text between two stars is looked at more than twice.
Marker nextMarker(QStringView text, qsizetype from)
{
    qsizetype star = text.indexOf(QLatin1Char('*'), from + 1);
    while (star >= 0) {
        if (isFence(text, star - 1)) {
            const Marker marker = markerAt(text, star - 1);
            if (marker.position >= 0) {
                return marker;
            }
        }
        star = text.indexOf(QLatin1Char('*'), star + 1);
    }
    return Marker();
}

const MarkerMeaning& meaningOf(QStringView marker)
{
    const auto* const found =
        std::find_if(markerMeanings.cbegin(), markerMeanings.cend(),
                     [marker](const MarkerMeaning& row) { return row.marker == marker; });
    return found == markerMeanings.cend() ? otherMarker : *found;
}

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

// The number in front of the first percent sign, of at most three digits; without a percent sign,
// the whole body. Text that is not a number gives 0.
QString percentageIn(QStringView body)
{
    const qsizetype sign = body.indexOf(QLatin1Char('%'));
    if (sign < 0) {
        return QString::number(body.toString().toInt());
    }
    qsizetype begin = sign;
    while (begin > 0 && sign - begin < 3 && isDigit(body[begin - 1])) {
        --begin;
    }
    return QString::number(body.mid(begin, sign - begin).toString().toInt());
}

QString messageText(BodyUse bodyUse, QStringView body)
{
    switch (bodyUse) {
    case BodyUse::Unchanged:
        return body.toString();
    case BodyUse::Trimmed:
        return body.trimmed().toString();
    case BodyUse::Number:
        return percentageIn(body);
    case BodyUse::Dropped:
        break;
    }
    return QString();
}

// A marker without a body repeats the body before it: the components rely on that.
QVector<common_KestProcessMessage> markedMessages(QStringView text, Marker marker)
{
    QVector<common_KestProcessMessage> messages;
    QStringView body;
    while (marker.position >= 0) {
        const Marker next = nextMarker(text, marker.end);
        const qsizetype bodyEnd = next.position >= 0 ? next.position : text.size();
        const MarkerMeaning& meaning =
            meaningOf(text.mid(marker.position, marker.end - marker.position));
        if (meaning.bodyUse != BodyUse::Dropped && bodyEnd > marker.end) {
            body = text.mid(marker.end, bodyEnd - marker.end);
        }
        messages.append(
            common_KestProcessMessage(meaning.type, messageText(meaning.bodyUse, body)));
        marker = next;
    }
    return messages;
}

// The matchers skip by the length of their text: most lines are shorter than most of the texts, or
// not much longer.
bool holdsBogusError(const QString& line)
{
    static const QVector<QStringMatcher> matchers = [] {
        QVector<QStringMatcher> result;
        for (const QLatin1String bogus : bogusParallelRunErrors) {
            result.append(QStringMatcher(bogus));
        }
        return result;
    }();
    return std::any_of(matchers.cbegin(), matchers.cend(), [&line](const QStringMatcher& matcher) {
        return matcher.indexIn(line) >= 0;
    });
}

} // namespace

common_KestProcessMessage::common_KestProcessMessage(Type type, const QString& text)
    : m_text(text), m_type(type)
{}

QString common_KestProcessMessage::getText() const
{
    return m_text;
}

common_IProcessMessage::Type common_KestProcessMessage::getType() const
{
    return m_type;
}

QVector<common_KestProcessMessage> common_KestProcessMessage::parseOutput(const QString& text)
{
    const QString line = common_withoutLineEnds(text);
    if (QStringView(line).trimmed().isEmpty()) {
        return {};
    }
    const QString chunk = removeBogusParallelRunErrors(line);
    const Marker first = nextMarker(chunk, 0);
    if (first.position < 0) {
        return {common_KestProcessMessage(Output, chunk)};
    }
    return markedMessages(chunk, first);
}

QVector<common_KestProcessMessage> common_KestProcessMessage::parseError(const QString& text)
{
    return parseOutput(text);
}

// Removing one of the texts can join the parts of a later one, but only in a line that contains
// one.
QString common_KestProcessMessage::removeBogusParallelRunErrors(QString text)
{
    if (holdsBogusError(text)) {
        for (const QLatin1String bogus : bogusParallelRunErrors) {
            text.replace(QString(bogus), QString());
        }
    }
    return text;
}
