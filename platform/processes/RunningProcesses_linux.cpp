// SPDX-License-Identifier: MIT
#include "RunningProcesses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace {

// Behind the program's name, which may hold anything; the first field is the state.
constexpr int stateField = 0;
constexpr int parentField = 1;
constexpr int flagsField = 6;
constexpr int startTimeField = 19;

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<QByteArray> statusFields(qint64 processId)
{
    const QByteArray status = contentOf(QStringLiteral("/proc/%1/stat").arg(processId));
    return status.mid(status.lastIndexOf(')') + 2).split(' ');
}

bool isExiting(qint64 processId)
{
    constexpr uint exiting = 0x4; // PF_EXITING of the kernel
    return (statusFields(processId).value(flagsField).toUInt() & exiting) != 0;
}

bool isKillPending(qint64 processId)
{
    constexpr quint64 killed = quint64(1) << (SIGKILL - 1);
    const QList<QByteArray> lines =
        contentOf(QStringLiteral("/proc/%1/status").arg(processId)).split('\n');
    for (const QByteArray& line : lines) {
        const bool isMask = line.startsWith("SigPnd:") || line.startsWith("ShdPnd:");
        if (isMask && (line.mid(7).trimmed().toULongLong(nullptr, 16) & killed) != 0) {
            return true;
        }
    }
    return false;
}

bool isKnown(qint64 processId)
{
    return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

} // namespace

QByteArray RunningProcesses::host()
{
    const QString numbering = QFile::symLinkTarget(QStringLiteral("/proc/self/ns/pid"));
    return QSysInfo::machineHostName().toUtf8() + '\n' + QSysInfo::machineUniqueId() + '\n' +
           QFileInfo(numbering).fileName().toUtf8();
}

QByteArray RunningProcesses::boot()
{
    return contentOf(QStringLiteral("/proc/sys/kernel/random/boot_id")).trimmed();
}

qint64 RunningProcesses::ownId()
{
    return ::getpid();
}

qint64 RunningProcesses::parentOf(qint64 processId)
{
    return statusFields(processId).value(parentField).toLongLong();
}

// A process that has ended stays in the list until its parent has asked for its exit code.
std::optional<quint64> RunningProcesses::startTime(qint64 processId)
{
    const QList<QByteArray> fields = statusFields(processId);
    if (fields.size() <= startTimeField) {
        return isKnown(processId) ? std::nullopt : std::optional<quint64>(0);
    }
    const QByteArray& state = fields[stateField];
    return state == "Z" || state == "X" ? 0 : fields[startTimeField].toULongLong();
}

bool RunningProcesses::isEnding(qint64 processId)
{
    return isExiting(processId) || isKillPending(processId);
}

bool RunningProcesses::haveArgumentEndingWith(const QString& end)
{
    const QByteArray argument = QFile::encodeName(end) + '\0';
    const QStringList processes =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString& process : processes) {
        const QByteArray words = contentOf(QStringLiteral("/proc/%1/cmdline").arg(process));
        if (words.contains(argument)) {
            return true;
        }
    }
    return false;
}

bool RunningProcesses::isOwnFile(const QFileInfo& file)
{
    return file.ownerId() == ::geteuid();
}

bool RunningProcesses::isPrivateFolder(const QFileInfo& folder)
{
    constexpr auto othersMayWrite = QFile::WriteGroup | QFile::WriteOther;
    return isOwnFile(folder) && !(folder.permissions() & othersMayWrite);
}
