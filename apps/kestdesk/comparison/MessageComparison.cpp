// SPDX-License-Identifier: MIT
#include "MessageComparison.h"

#include "MessageReader.h"
#include "RecordFolder.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QPair>

#include <algorithm>

namespace {

using Message = RunComparison::Message;
using Type = RecordedMessage::Type;

constexpr Type severities[] = {Type::Error, Type::Warning, Type::Notice};

// In the order of their first occurrence.
class Occurrences
{
public:
    void add(const RunRecord& record, int Message::*count, QStringList& problems)
    {
        const QString file = RecordFolder(record.folder).messagesFile();
        if (!QFileInfo(file).isReadable()) {
            problems.append(
                QStringLiteral("the messages of run %1 cannot be read").arg(record.number));
        }
        MessageReader(file).readAll([this, count](const RecordedMessage& message) {
            const auto* const end = std::end(severities);
            if (std::find(std::begin(severities), end, message.type) != end) {
                ++(at(message).*count);
            }
        });
    }

    QVector<Message> unequal() const
    {
        QVector<Message> result;
        for (const Type type : severities) {
            std::copy_if(m_messages.cbegin(), m_messages.cend(), std::back_inserter(result),
                         [type](const Message& message) {
                             return message.type == type && message.left != message.right;
                         });
        }
        return result;
    }

private:
    Message& at(const RecordedMessage& message)
    {
        const QPair<int, QString> key(message.type, message.text);
        auto found = m_indices.find(key);
        if (found == m_indices.end()) {
            found = m_indices.insert(key, m_messages.size());
            m_messages.append({message.type, message.text, 0, 0});
        }
        return m_messages[found.value()];
    }

    QVector<Message> m_messages;
    QHash<QPair<int, QString>, int> m_indices;
};

} // namespace

QVector<Message> MessageComparison::of(const RunRecord& left, const RunRecord& right,
                                       QStringList& problems)
{
    Occurrences occurrences;
    occurrences.add(left, &Message::left, problems);
    occurrences.add(right, &Message::right, problems);
    return occurrences.unequal();
}

QJsonArray MessageComparison::toJson(const QVector<Message>& messages)
{
    QJsonArray array;
    for (const Message& message : messages) {
        array.append(QJsonObject{{QStringLiteral("type"), RecordedMessage::word(message.type)},
                                 {QStringLiteral("text"), message.text},
                                 {QStringLiteral("left"), message.left},
                                 {QStringLiteral("right"), message.right}});
    }
    return array;
}
