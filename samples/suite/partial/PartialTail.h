// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace suite {

/// Reads the lines that another process appends to a file of partial results.
class PartialTail
{
public:
    /// Skips the content before the offset, in bytes.
    PartialTail(const QString& path, qint64 offset);

    /// The complete lines that were added since the last call, with their line ends.
    QList<QByteArray> newLines();

private:
    QString m_path;
    qint64 m_offset;
};

} // namespace suite
