// SPDX-License-Identifier: MIT
#include "PartialTail.h"

#include <QFile>

namespace suite {

PartialTail::PartialTail(const QString& path, qint64 offset) : m_path(path), m_offset(offset)
{}

QList<QByteArray> PartialTail::newLines()
{
    QList<QByteArray> result;
    QFile file(m_path);
    bool isWhole = file.open(QIODevice::ReadOnly) && file.seek(m_offset);
    while (isWhole) {
        const QByteArray line = file.readLine();
        isWhole = line.endsWith('\n');
        if (isWhole) {
            result.append(line);
            m_offset += line.size();
        }
    }
    return result;
}

} // namespace suite
