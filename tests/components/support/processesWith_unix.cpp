// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <QDir>

QStringList processesWith(const QByteArray& assignment)
{
    QStringList result;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        const QByteArray environment = readFile(QStringLiteral("/proc/%1/environ").arg(entry));
        if (environment.split('\0').contains(assignment)) {
            result.append(entry);
        }
    }
    return result;
}
