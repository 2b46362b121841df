// SPDX-License-Identifier: MIT
#include "MessageStore.h"

#include <utility>

namespace {

constexpr int interval = 500;           // milliseconds between two reads of a growing file
constexpr qint64 pieceSize = 256 << 10; // bytes of one read

} // namespace

MessageStore::MessageStore(const QString& file, bool isGrowing, QObject* parent)
    : QObject(parent)
    , m_reader(std::make_shared<MessageReader>(file))
    , m_counts(common_IProcessMessage::Variable + 1)
    , m_isGrowing(isGrowing)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &MessageStore::read);
    read();
}

void MessageStore::setGrowing(bool isGrowing)
{
    m_isGrowing = isGrowing;
    if (!m_timer.isActive() && m_isLoaded) {
        m_timer.start();
    }
}

// The next piece is read when this one has been taken over.
void MessageStore::read()
{
    m_disk.post([this, reader = m_reader](const DiskThread::Answer& answer) {
        QVector<Message> messages;
        const bool isMore = reader->read(
            [&messages](const RecordedMessage& message) {
                messages.append({message.time, message.type, message.text.toUtf8()});
            },
            pieceSize);
        answer([this, messages, isMore] {
            add(messages);
            if (isMore) {
                read();
                return;
            }
            if (!std::exchange(m_isLoaded, true)) {
                Q_EMIT loaded();
            }
            if (m_isGrowing) {
                m_timer.start();
            }
        });
    });
}

void MessageStore::add(const QVector<Message>& messages)
{
    if (messages.isEmpty()) {
        return;
    }
    for (const Message& message : messages) {
        ++m_counts[message.type];
    }
    m_messages += messages;
    Q_EMIT grown();
}
