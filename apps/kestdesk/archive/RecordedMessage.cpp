// SPDX-License-Identifier: MIT
#include "RecordedMessage.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {

// Indexed by common_IProcessMessage::Type.
constexpr const char* typeWords[] = {"output",           "line feed", "percentage",
                                     "total percentage", "error",     "warning",
                                     "notice",           "file",      "variable"};

const QString timeKey = QStringLiteral("time");
const QString typeKey = QStringLiteral("type");
const QString textKey = QStringLiteral("text");

} // namespace

QString RecordedMessage::word(Type type)
{
    return QLatin1String(typeWords[type]);
}

QJsonObject RecordedMessage::toJson() const
{
    return {{timeKey, time}, {typeKey, word(type)}, {textKey, text}};
}

QByteArray RecordedMessage::toLine() const
{
    return QJsonDocument(toJson()).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<RecordedMessage> RecordedMessage::parse(const QByteArray& line)
{
    const QJsonObject json = QJsonDocument::fromJson(line).object();
    const QString typed = json.value(typeKey).toString();
    const auto* const found =
        std::find_if(std::cbegin(typeWords), std::cend(typeWords),
                     [&typed](const char* each) { return typed == QLatin1String(each); });
    if (found == std::cend(typeWords)) {
        return std::nullopt;
    }
    const auto index = static_cast<int>(std::distance(std::cbegin(typeWords), found));
    return RecordedMessage{static_cast<qint64>(json.value(timeKey).toDouble()),
                           static_cast<Type>(index), json.value(textKey).toString()};
}
