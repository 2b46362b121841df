#pragma once

#include "DiskThread.h"
#include "MessageReader.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

/// The messages of a record, read in a thread piece by piece, and followed as long as its run goes
/// on.
class MessageStore : public QObject
{
    Q_OBJECT

public:
    using Type = RecordedMessage::Type;

    /// Texts are kept as they are in the file, which takes half of the memory.
    struct Message
    {
        qint64 time = 0; ///< milliseconds since the start
        Type type = Type::Output;
        QByteArray text; ///< UTF-8
    };

    /// Begins to read at once.
    MessageStore(const QString& file, bool isGrowing, QObject* parent);

    /// Whether the run goes on. What has come until now is read in any case.
    void setGrowing(bool isGrowing);

    int size() const { return m_messages.size(); }
    const Message& at(int index) const { return m_messages.at(index); }
    QString text(int index) const { return QString::fromUtf8(m_messages.at(index).text); }

    /// Of that type, so far.
    int count(Type type) const { return m_counts.at(type); }

Q_SIGNALS:
    /// Messages have been added at the end.
    void grown();

    /// All that are there have been read, for the first time.
    void loaded();

private:
    void read();
    void add(const QVector<Message>& messages);

    std::shared_ptr<MessageReader> m_reader; ///< for the thread
    QVector<Message> m_messages;
    QVector<int> m_counts;
    bool m_isGrowing;
    bool m_isLoaded = false;
    QTimer m_timer;
    DiskThread m_disk; ///< the first to go
};
