#pragma once

#include "RecordedMessage.h"

#include <QString>

#include <functional>

/// Reads the messages of a record, which may be growing. A line that is not complete yet, or that a
/// power cut has torn, is left out.
class MessageReader
{
public:
    using Take = std::function<void(const RecordedMessage& message)>;

    /// The file need not be there yet.
    explicit MessageReader(QString file);

    /// Passes on the messages that have come since the last call, at most about that many bytes of
    /// them. False when nothing has come.
    bool read(const Take& take, qint64 mostBytes = 1 << 20);

    /// All that are left.
    void readAll(const Take& take);

private:
    QString m_file;
    qint64 m_position = 0; ///< behind the last complete line
};
