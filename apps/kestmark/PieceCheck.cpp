// SPDX-License-Identifier: MIT
#include "PieceCheck.h"

#include "MarkerScan.h"
#include "MessageTable.h"
#include "PercentageText.h"
#include "PieceText.h"
#include "Quoted.h"

#include <common_KestProcessMessage.h>

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

using Message = common_IProcessMessage;

bool isPercentage(Message::Type type)
{
    return type == Message::Percentage || type == Message::TotalPercentage;
}

// A near miss in what the library takes for text.
void addNearMiss(CheckedPiece& checked, const QString& text)
{
    const MarkerScan::NearMiss miss = MarkerScan::nearMiss(text);
    if (miss.text.isEmpty()) {
        return;
    }
    const QString hint =
        miss.suggestion.isEmpty()
            ? QCoreApplication::translate(
                  "Remark", "a marker is \"-*-\", lowercase letters with at most one \"-\" among "
                            "them, and \"-*-\"")
            : QCoreApplication::translate("Remark", "write %1").arg(miss.suggestion);
    checked.remarks.append(
        {Remark::Kind::NearMiss,
         QCoreApplication::translate("Remark", "%1 is no marker and is shown as text; %2")
             .arg(quoted(miss.text), hint)});
}

void addUnmarked(CheckedPiece& checked, const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*(ERROR|WARNING|NOTE) [0-9]+\\s*:"));
    const QString word = pattern.match(text).captured(1);
    if (!word.isEmpty()) {
        const QString marker =
            word == QLatin1String("NOTE") ? QStringLiteral("notice") : word.toLower();
        checked.remarks.append(
            {Remark::Kind::UnmarkedMessage,
             QCoreApplication::translate("Remark",
                                         "shown as ordinary output; write -*-%1-*- in front of it")
                 .arg(marker)});
    }
}

void addUnknown(CheckedPiece& checked, const QString& marker)
{
    const QString suggestion = MarkerScan::suggestion(MarkerScan::wordOf(marker));
    const QString text =
        QCoreApplication::translate(
            "Remark", "%1 has no meaning: it is removed, and the text behind it is shown as "
                      "ordinary output")
            .arg(marker);
    checked.remarks.append({Remark::Kind::UnknownMarker,
                            text + (suggestion.isEmpty() ? QString()
                                                         : QCoreApplication::translate(
                                                               "Remark", "; %1 was probably meant")
                                                               .arg(suggestion))});
}

// Of one marker: the body is its own, empty for one that repeats the body before it.
void addBody(CheckedPiece& checked, const CheckedMessage& message, const QString& body)
{
    if (message.type == Message::LineFeed) {
        if (!body.trimmed().isEmpty()) {
            checked.remarks.append(
                {Remark::Kind::TextAfterLineFeed,
                 QCoreApplication::translate("Remark", "%1 is dropped: a line feed has no text")
                     .arg(quoted(body))});
        }
        return;
    }
    addNearMiss(checked, body);
    if (message.isRepeated) {
        return;
    }
    if (isPercentage(message.type)) {
        checked.remarks += PercentageText::remarks(body, message.text);
    } else if (body.trimmed().isEmpty()) {
        checked.remarks.append(
            {Remark::Kind::NoText,
             QCoreApplication::translate("Remark", "no text stands behind the marker")});
    }
    checked.remarks += MessageTable::remarks(message.type, message.text);
}

void addMarked(CheckedPiece& checked, const QString& text,
               const QVector<MarkerScan::Found>& markers)
{
    const QString before = text.left(markers.constFirst().position);
    if (!before.trimmed().isEmpty()) {
        checked.remarks.append(
            {Remark::Kind::TextBeforeMarker,
             QCoreApplication::translate("Remark", "%1 is dropped: it stands in front of the first "
                                                   "marker of the line")
                 .arg(quoted(before))});
    }
    addNearMiss(checked, before);
    bool hasBody = false;
    for (int i = 0; i < markers.size(); ++i) {
        const int end = i + 1 < markers.size() ? markers[i + 1].position : text.size();
        const QString body = text.mid(markers[i].end, end - markers[i].end);
        CheckedMessage& message = checked.messages[i];
        message.isRepeated = body.isEmpty() && hasBody && message.type != Message::LineFeed;
        hasBody = hasBody || (!body.isEmpty() && message.type != Message::LineFeed);
        if (!MarkerScan::isKnown(markers[i].text)) {
            addUnknown(checked, markers[i].text);
        }
        addBody(checked, message, body);
    }
}

} // namespace

CheckedPiece PieceCheck::check(const SolverPiece& piece)
{
    const QString text = PieceText::decode(piece);
    CheckedPiece checked;
    checked.line = piece.line;
    checked.number = piece.number;
    checked.isOnlyOne = piece.number == 1 && piece.isLast;
    const auto messages = common_KestProcessMessage::parseOutput(text);
    for (const auto& message : messages) {
        checked.messages.append({message.getType(), message.getText(), false,
                                 MessageTable::row(message.getType(), message.getText())});
    }
    checked.remarks = PieceText::remarks(piece);
    if (checked.messages.isEmpty()) {
        return checked;
    }
    const QString cleaned = PieceText::cleaned(text);
    if (cleaned.size() != QString(text).remove(u'\r').remove(u'\n').size()) {
        checked.remarks.append({Remark::Kind::RuntimeText,
                                QCoreApplication::translate(
                                    "Remark", "what the parallel runtime prints when it closes "
                                              "its sockets is removed")});
    }
    const QVector<MarkerScan::Found> markers = MarkerScan::markers(cleaned);
    if (markers.isEmpty()) {
        addNearMiss(checked, cleaned);
        addUnmarked(checked, cleaned);
    } else if (markers.size() == checked.messages.size()) {
        addMarked(checked, cleaned, markers);
    }
    return checked;
}
