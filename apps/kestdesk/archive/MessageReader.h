// SPDX-License-Identifier: MIT
#pragma once

#include "RecordedMessage.h"

#include <QString>

#include <functional>

/// Reads the messages of a record, which may still grow. Incomplete lines, and lines that a power
/// cut has damaged, are skipped.
class MessageReader
{
public:
    using Take = std::function<void(const RecordedMessage& message)>;

    /// The file need not exist yet.
    explicit MessageReader(QString file);

    /// Passes on the messages that were added since the last call, at most about `mostBytes` of
    /// them. False if there are none.
    bool read(const Take& take, qint64 mostBytes = 1 << 20);

    /// Passes on all remaining messages.
    void readAll(const Take& take);

private:
    QString m_file;
    qint64 m_position = 0; ///< behind the last complete line
};
