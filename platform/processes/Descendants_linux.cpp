// SPDX-License-Identifier: MIT
#include "Descendants.h"

#include <QDir>
#include <QFile>
#include <QMultiHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace {

struct Process
{
    pid_t id = 0;
    pid_t parent = 0;
    bool hasEnded = false; // but its parent has not asked for the exit code yet
};

QVector<Process> allProcesses()
{
    QVector<Process> result;
    const QStringList directories =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString& directory : directories) {
        QFile file(QStringLiteral("/proc/%1/stat").arg(directory));
        if (!file.open(QIODevice::ReadOnly)) {
            continue; // gone meanwhile
        }
        const QByteArray status = file.readAll();
        const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 1) {
            result.append({directory.toInt(), fields[1].toInt(), fields[0] == "Z"});
        }
    }
    return result;
}

QVector<pid_t> descendants()
{
    QMultiHash<pid_t, pid_t> children; // by parent
    const QVector<Process> processes = allProcesses();
    for (const Process& process : processes) {
        if (!process.hasEnded) {
            children.insert(process.parent, process.id);
        }
    }
    QVector<pid_t> result = QVector<pid_t>::fromList(children.values(getpid()));
    for (int next = 0; next < result.size(); ++next) {
        result += QVector<pid_t>::fromList(children.values(result[next]));
    }
    return result;
}

} // namespace

void Descendants::adoptOrphans()
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void Descendants::bindToThisProgram()
{}

// They lose their parent as soon as they are started, and must not be adopted then. A message that
// is shown instead lets the others be adopted again.
void Descendants::startDetached(const std::function<void()>& start)
{
    int adopts = 0;
    prctl(PR_GET_CHILD_SUBREAPER, &adopts);
    if (adopts == 0) {
        start();
        return;
    }
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    const QObject meanwhile;
    QTimer::singleShot(0, &meanwhile, &adoptOrphans);
    start();
    adoptOrphans();
}

bool Descendants::isAnySeen()
{
    return !descendants().isEmpty();
}

void Descendants::killAll()
{
    const QVector<pid_t> processes = descendants();
    for (const pid_t process : processes) {
        ::kill(process, SIGKILL);
    }
}

QSet<qint64> Descendants::endedChildren()
{
    QSet<qint64> result;
    const QVector<Process> processes = allProcesses();
    for (const Process& process : processes) {
        if (process.hasEnded && process.parent == getpid()) {
            result.insert(process.id);
        }
    }
    return result;
}
