#include "Descendants.h"

#include <QDir>
#include <QFile>
#include <QMultiHash>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace {

using Children = QMultiHash<pid_t, pid_t>; // by parent

// A zombie has ended: only its parent has not asked yet.
void addProcess(const QString& directory, Children& children)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(directory));
    if (!file.open(QIODevice::ReadOnly)) {
        return; // gone meanwhile
    }
    const QByteArray status = file.readAll();
    const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
    if (fields.size() > 1 && fields[0] != "Z") {
        children.insert(fields[1].toInt(), directory.toInt());
    }
}

QVector<pid_t> descendants()
{
    Children children;
    const QStringList directories =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString& directory : directories) {
        addProcess(directory, children);
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

// They lose their parent as soon as they are started, and must not be adopted then. A message that
// is shown instead lets the others be adopted again.
void Descendants::startApart(const std::function<void()>& start)
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

bool Descendants::areAlive()
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
