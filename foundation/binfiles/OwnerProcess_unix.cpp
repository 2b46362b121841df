#include "OwnerProcess.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>

namespace {

QString procFile(qint64 process, const char* name)
{
    return QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(name));
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The fields behind the program's name, which may contain blanks and brackets. The first one is the
// state.
QList<QByteArray> statusFields(qint64 process)
{
    const QByteArray line = contentOf(procFile(process, "stat"));
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

bool isZombie(qint64 process)
{
    const QByteArray state = statusFields(process).value(0);
    return state == "Z" || state == "X";
}

bool isExiting(qint64 process)
{
    constexpr int flagsField = 6;
    constexpr uint exiting = 0x4; // PF_EXITING of the kernel
    return (statusFields(process).value(flagsField).toUInt() & exiting) != 0;
}

bool isKillPending(qint64 process)
{
    constexpr quint64 killed = quint64(1) << (SIGKILL - 1);
    const QList<QByteArray> lines = contentOf(procFile(process, "status")).split('\n');
    for (const QByteArray& line : lines) {
        const bool isMask = line.startsWith("SigPnd:") || line.startsWith("ShdPnd:");
        if (isMask && (line.mid(7).trimmed().toULongLong(nullptr, 16) & killed) != 0) {
            return true;
        }
    }
    return false;
}

} // namespace

QString OwnerProcess::program(qint64 process)
{
    // The system adds this when the program's file was replaced meanwhile.
    const QString replaced = QStringLiteral(" (deleted)");
    QString name = QFileInfo(QFile::symLinkTarget(procFile(process, "exe"))).fileName();
    if (name.endsWith(replaced)) {
        name.chop(replaced.size());
    }
    return name;
}

bool OwnerProcess::hasEnded(qint64 process, const QString& program)
{
    if ((::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH) || isZombie(process)) {
        return true;
    }
    const QString running = OwnerProcess::program(process);
    return !running.isEmpty() && !program.isEmpty() && running != program;
}

bool OwnerProcess::isEnding(qint64 process)
{
    return isExiting(process) || isKillPending(process);
}
