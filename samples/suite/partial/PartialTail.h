#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace suite {

/// The lines that another process adds to a file of partial results.
class PartialTail
{
public:
    /// What stands before the offset, in bytes, is known.
    PartialTail(const QString& path, qint64 offset);

    /// The whole lines that have been added since the last call, with their ends.
    QList<QByteArray> newLines();

private:
    QString m_path;
    qint64 m_offset;
};

} // namespace suite
