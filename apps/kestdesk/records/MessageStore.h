// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "MessageReader.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

/// The messages of a record, read in a thread piece by piece, and followed while its run runs.
class MessageStore : public QObject
{
    Q_OBJECT

public:
    using Type = RecordedMessage::Type;

    /// Texts are kept in UTF-8, which takes half of the memory.
    struct Message
    {
        qint64 time = 0; ///< milliseconds since the start
        Type type = Type::Output;
        QByteArray text; ///< UTF-8
    };

    /// Starts to read at once.
    MessageStore(const QString& file, bool isGrowing, QObject* parent);

    /// Sets whether the run still runs. All messages up to now are read in any case.
    void setGrowing(bool isGrowing);

    int size() const { return m_messages.size(); }
    const Message& at(int index) const { return m_messages.at(index); }
    QString text(int index) const { return QString::fromUtf8(m_messages.at(index).text); }

    /// The number of messages of a type so far.
    int count(Type type) const { return m_counts.at(type); }

Q_SIGNALS:
    /// Messages have been appended.
    void grown();

    /// All existing messages have been read for the first time.
    void loaded();

private:
    void read();
    void add(const QVector<Message>& messages);

    std::shared_ptr<MessageReader> m_reader; ///< used by the thread
    QVector<Message> m_messages;
    QVector<int> m_counts;
    bool m_isGrowing;
    bool m_isLoaded = false;
    QTimer m_timer;
    DiskThread m_disk; ///< destroyed first
};
