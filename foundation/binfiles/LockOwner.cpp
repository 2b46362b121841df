// SPDX-License-Identifier: MIT
#include "LockOwner.h"

#include "OwnerProcess.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

LockOwner LockOwner::self()
{
    LockOwner owner;
    owner.process = QCoreApplication::applicationPid();
    owner.program = OwnerProcess::program(owner.process);
    owner.host = QSysInfo::machineHostName();
    return owner;
}

LockOwner LockOwner::of(const QString& path)
{
    const QFileInfo info(path);
    QFile file(path);
    const bool isReadable = info.isFile() && !info.isSymLink() && info.size() <= mostBytes &&
                            file.open(QIODevice::ReadOnly);
    return isReadable ? parse(file.read(mostBytes)) : LockOwner();
}

LockOwner LockOwner::parse(const QByteArray& content)
{
    const QList<QByteArray> lines = content.split('\n');
    LockOwner owner;
    bool isNumber = false;
    const qint64 process = lines.value(0).toLongLong(&isNumber);
    const bool hasAllLines = lines.size() > 3 && content.size() <= mostBytes;
    if (isNumber && process > 0 && hasAllLines) {
        owner.process = process;
        owner.program = QString::fromUtf8(lines.at(1)).trimmed();
        owner.host = QString::fromUtf8(lines.at(2)).trimmed();
    }
    return owner;
}

QByteArray LockOwner::content() const
{
    return QByteArray::number(process) + '\n' + program.toUtf8() + '\n' + host.toUtf8() + '\n';
}

bool LockOwner::isElsewhere() const
{
    return isKnown() && !host.isEmpty() && host != QSysInfo::machineHostName();
}

bool LockOwner::hasEnded() const
{
    return isKnown() && !isElsewhere() && OwnerProcess::hasEnded(process, program);
}

bool LockOwner::isEnding() const
{
    return isKnown() && !isElsewhere() && OwnerProcess::isEnding(process);
}
