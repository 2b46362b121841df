// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <algorithm>

/// The text of a settings file in the order of Unix: QSettings sorts groups and keys there. On
/// Windows it keeps the order of the file and writes what is new behind it.
inline QByteArray unixSettings(const QByteArray& content)
{
#ifdef Q_OS_WIN
    QList<QByteArray> groups;
    QList<QByteArray> keys;
    QByteArray head;
    const auto endGroup = [&] {
        std::sort(keys.begin(), keys.end());
        groups.append(head + '\n' + keys.join());
        keys.clear();
    };
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith('[')) {
            if (!head.isEmpty()) {
                endGroup();
            }
            head = line;
        } else if (!line.isEmpty()) {
            keys.append(line + '\n');
        }
    }
    endGroup();
    std::sort(groups.begin(), groups.end());
    return groups.join('\n');
#else
    return content;
#endif
}
