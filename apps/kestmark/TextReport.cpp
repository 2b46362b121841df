// SPDX-License-Identifier: MIT
#include "TextReport.h"

#include "CheckedPiece.h"
#include "OutputSummary.h"
#include "TypeWord.h"

#include <VisibleText.h>

#include <QCoreApplication>
#include <QStringList>

namespace {

constexpr int longestText = 300;
constexpr int typeWidth = 16;
constexpr int numberWidth = 6;

QString shown(const QString& text)
{
    return text.size() <= longestText
               ? suite::visibleText(text)
               : suite::visibleText(text.left(longestText)) +
                     QCoreApplication::translate("TextReport", "... (%1 characters)")
                         .arg(text.size());
}

QString label(const CheckedPiece& piece)
{
    const QString line = QString::number(piece.line);
    return piece.isOnlyOne ? line : QStringLiteral("%1.%2").arg(line).arg(piece.number);
}

QString explanation(const CheckedMessage& message)
{
    QString text = QCoreApplication::translate("TextReport", "\"%1\"").arg(shown(message.text));
    if (message.type == common_IProcessMessage::LineFeed) {
        text = QCoreApplication::translate("TextReport", "an empty line");
    } else if (message.type == common_IProcessMessage::Percentage ||
               message.type == common_IProcessMessage::TotalPercentage) {
        text = message.text + QStringLiteral(" %");
    }
    if (message.isRepeated) {
        text += QCoreApplication::translate("TextReport", ", repeated from the marker before");
    }
    if (message.listed) {
        text += QCoreApplication::translate("TextReport", ", listed as %1 | %2")
                    .arg(shown(message.listed->identifier), shown(message.listed->description));
    }
    return text;
}

QString lineText(qint64 count)
{
    return (count == 1 ? QCoreApplication::translate("TextReport", "%1 line")
                       : QCoreApplication::translate("TextReport", "%1 lines"))
        .arg(count);
}

QString remarkText(qint64 count)
{
    return (count == 1 ? QCoreApplication::translate("TextReport", "%1 remark")
                       : QCoreApplication::translate("TextReport", "%1 remarks"))
        .arg(count);
}

QString counts(const OutputSummary& summary)
{
    QStringList parts;
    for (std::size_t type = 0; type < summary.messages.size(); ++type) {
        if (summary.messages[type] > 0) {
            parts.append(QStringLiteral("%1 %2")
                             .arg(summary.messages[type])
                             .arg(typeWord(static_cast<common_IProcessMessage::Type>(type))));
        }
    }
    return parts.isEmpty() ? QCoreApplication::translate("TextReport", "no messages")
                           : parts.join(QStringLiteral(", "));
}

} // namespace

TextReport::TextReport(std::FILE* stream, ReportStyle style) : StreamReport(stream, style)
{}

void TextReport::add(const CheckedPiece& piece)
{
    if (isLeftOut(piece)) {
        return;
    }
    if (piece.messages.isEmpty()) {
        writeLine(QStringLiteral("%1  %2")
                      .arg(label(piece), numberWidth)
                      .arg(QCoreApplication::translate("TextReport", "nothing")));
    }
    for (const CheckedMessage& message : piece.messages) {
        writeLine(QStringLiteral("%1  %2  %3")
                      .arg(label(piece), numberWidth)
                      .arg(typeWord(message.type), -typeWidth)
                      .arg(explanation(message)));
    }
    for (const Remark& remark : piece.remarks) {
        writeLine(QStringLiteral("%1  ! %2: %3")
                      .arg(QString(), numberWidth)
                      .arg(remark.word(), shown(remark.text)));
    }
    flush();
}

void TextReport::add(const Remark& remark)
{
    writeLine(QStringLiteral("%1: %2").arg(remark.word(), shown(remark.text)));
}

void TextReport::finish(const OutputSummary& summary)
{
    writeLine(QStringLiteral("%1: %2").arg(lineText(summary.lines), counts(summary)));
    writeLine(remarkText(summary.remarks));
}

void TextReport::fail(const QString& /*problem*/)
{}

void TextReport::writeLine(const QString& text)
{
    write(text.toUtf8() + '\n');
}
