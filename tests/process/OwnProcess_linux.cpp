// SPDX-License-Identifier: MIT
#include "OwnProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

int OwnProcess::openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
        .size();
}

int OwnProcess::children(bool withEnded)
{
    int children = 0;
    const QStringList processes =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")});
    for (const QString& process : processes) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(process));
        if (stat.open(QIODevice::ReadOnly)) {
            const QByteArray line = stat.readAll();
            const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
            const bool own = fields.value(1).toLongLong() == QCoreApplication::applicationPid();
            children += own && (withEnded || fields.value(0) != "Z") ? 1 : 0;
        }
    }
    return children;
}
