// SPDX-License-Identifier: MIT
#include "MessageTable.h"

#include <QCoreApplication>

namespace {

QString withoutKeyword(common_IProcessMessage::Type type, const QString& text)
{
    return text.simplified().remove(MessageTable::keyword(type), Qt::CaseInsensitive);
}

bool hasKeyword(common_IProcessMessage::Type type, const QString& text)
{
    return text.contains(MessageTable::keyword(type), Qt::CaseInsensitive);
}

} // namespace

QString MessageTable::keyword(common_IProcessMessage::Type type)
{
    switch (type) {
    case common_IProcessMessage::Warning:
        return QStringLiteral("WARNING ");
    case common_IProcessMessage::Notice:
        return QStringLiteral("NOTE ");
    default:
        return QString();
    }
}

std::optional<ListedMessage> MessageTable::row(common_IProcessMessage::Type type,
                                               const QString& text)
{
    if (keyword(type).isEmpty() || !hasKeyword(type, text)) {
        return std::nullopt;
    }
    const QString message = withoutKeyword(type, text);
    if (message.indexOf(QLatin1Char(':')) <= 0) {
        return std::nullopt;
    }
    QString identifier = message.section(QLatin1Char(' '), 0, 0);
    identifier.remove(QLatin1Char(':'));
    return ListedMessage{identifier,
                         message.mid(message.lastIndexOf(QLatin1Char(':')) + 1).simplified()};
}

QVector<Remark> MessageTable::remarks(common_IProcessMessage::Type type, const QString& text)
{
    if (keyword(type).isEmpty() || text.trimmed().isEmpty()) {
        return {};
    }
    const std::optional<ListedMessage> listed = row(type, text);
    if (!listed) {
        const QString reason =
            hasKeyword(type, text)
                ? QCoreApplication::translate("Remark", "there is no \":\" behind its number")
                : QCoreApplication::translate("Remark", "\"%1\" is missing").arg(keyword(type));
        return {{Remark::Kind::NotListed,
                 QCoreApplication::translate(
                     "Remark", "shown in the output, but neither counted nor listed: %1; "
                               "write \"%2NUMBER: TEXT\"")
                     .arg(reason, keyword(type))}};
    }
    if (listed->description.isEmpty()) {
        return {{Remark::Kind::NoText,
                 QCoreApplication::translate(
                     "Remark", "listed without a description: nothing stands behind the last "
                               "\":\"")}};
    }
    if (withoutKeyword(type, text).count(QLatin1Char(':')) > 1) {
        return {{Remark::Kind::SeveralColons,
                 QCoreApplication::translate(
                     "Remark", "the description in the table is only what stands behind the last "
                               "\":\"; write no other \":\" in the text")}};
    }
    return {};
}
