// SPDX-License-Identifier: MIT
#include "JsonReport.h"

#include "CheckedPiece.h"
#include "OutputSummary.h"
#include "TypeWord.h"

#include <QJsonDocument>

namespace {

QJsonObject json(const Remark& remark)
{
    return {{QStringLiteral("word"), remark.word()}, {QStringLiteral("text"), remark.text}};
}

QJsonObject json(const CheckedMessage& message)
{
    QJsonObject result = {{QStringLiteral("type"), typeWord(message.type)},
                          {QStringLiteral("text"), message.text}};
    if (message.isRepeated) {
        result.insert(QStringLiteral("repeated"), true);
    }
    if (message.listed) {
        result.insert(QStringLiteral("identifier"), message.listed->identifier);
        result.insert(QStringLiteral("description"), message.listed->description);
    }
    return result;
}

QJsonObject json(const CheckedPiece& piece)
{
    QJsonArray messages;
    for (const CheckedMessage& message : piece.messages) {
        messages.append(json(message));
    }
    QJsonArray remarks;
    for (const Remark& remark : piece.remarks) {
        remarks.append(json(remark));
    }
    return {{QStringLiteral("line"), piece.line},
            {QStringLiteral("piece"), piece.number},
            {QStringLiteral("messages"), messages},
            {QStringLiteral("remarks"), remarks}};
}

QJsonObject json(const OutputSummary& summary)
{
    QJsonObject messages;
    for (std::size_t type = 0; type < summary.messages.size(); ++type) {
        messages.insert(typeWord(static_cast<common_IProcessMessage::Type>(type)),
                        summary.messages[type]);
    }
    QJsonObject result = {{QStringLiteral("lines"), summary.lines},
                          {QStringLiteral("blankLines"), summary.blankLines},
                          {QStringLiteral("messages"), messages},
                          {QStringLiteral("remarks"), summary.remarks}};
    if (summary.totalPercentage != OutputSummary::none) {
        result.insert(QStringLiteral("totalPercentage"), summary.totalPercentage);
    }
    return result;
}

QByteArray text(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

JsonReport::JsonReport(std::FILE* stream, ReportStyle style) : StreamReport(stream, style)
{
    write("{\"lines\":[");
}

void JsonReport::add(const CheckedPiece& piece)
{
    if (isLeftOut(piece)) {
        return;
    }
    write((m_isFirst ? "\n" : ",\n") + text(json(piece)));
    m_isFirst = false;
}

void JsonReport::add(const Remark& remark)
{
    m_remarks.append(json(remark));
}

void JsonReport::finish(const OutputSummary& summary)
{
    end({{QStringLiteral("remarks"), m_remarks}, {QStringLiteral("summary"), json(summary)}});
}

void JsonReport::fail(const QString& problem)
{
    end({{QStringLiteral("problem"), problem}});
}

// The object is the end of the one that the constructor has begun.
void JsonReport::end(const QJsonObject& last)
{
    write("\n]," + text(last).mid(1) + '\n');
}
