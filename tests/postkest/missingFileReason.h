// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

/// Why a file that does not exist cannot be opened, in the words of the system but without a
/// period.
inline QString missingFileReason()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("missing")));
    file.open(QIODevice::ReadOnly);
    QString reason = file.errorString();
    reason.remove(QRegularExpression(QStringLiteral("\\.$")));
    return reason;
}
