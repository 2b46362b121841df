// SPDX-License-Identifier: MIT
#include "MessageReader.h"

#include <QFile>

#include <utility>

MessageReader::MessageReader(QString file) : m_file(std::move(file))
{}

bool MessageReader::read(const Take& take, qint64 mostBytes)
{
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(m_position)) {
        return false;
    }
    const qint64 begin = m_position;
    while (m_position - begin < mostBytes) {
        const QByteArray line = file.readLine();
        if (!line.endsWith('\n')) {
            break;
        }
        m_position += line.size();
        if (const auto message = RecordedMessage::parse(line)) {
            take(*message);
        }
    }
    return m_position > begin;
}

void MessageReader::readAll(const Take& take)
{
    while (read(take)) {
    }
}
