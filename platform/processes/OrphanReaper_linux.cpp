// SPDX-License-Identifier: MIT
#include "OrphanReaper.h"

#include "Descendants.h"

#include <QDir>
#include <QFile>

#include <sys/wait.h>

namespace {

constexpr int interval = 1000; // milliseconds

bool hasAnyChildEnded()
{
    siginfo_t child = {};
    return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 && child.si_pid != 0;
}

// The children that a descriptor of this program stands for: that is how a QProcess holds its own.
QSet<qint64> heldChildren()
{
    QSet<qint64> result;
    const QDir directory(QStringLiteral("/proc/self/fdinfo"));
    const QStringList descriptors = directory.entryList(QDir::Files);
    for (const QString& descriptor : descriptors) {
        QFile file(directory.filePath(descriptor));
        const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        const QList<QByteArray> lines = content.split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("Pid:")) {
                result.insert(line.mid(4).trimmed().toLongLong());
            }
        }
    }
    return result;
}

} // namespace

OrphanReaper::OrphanReaper()
{
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { reap(); });
}

void OrphanReaper::start()
{
    m_timer.start();
}

void OrphanReaper::reap()
{
    const QSet<qint64> ended =
        hasAnyChildEnded() ? Descendants::endedChildren() - heldChildren() : QSet<qint64>();
    for (const qint64 child : ended) {
        if (m_seen.contains(child)) {
            waitpid(static_cast<pid_t>(child), nullptr, WNOHANG);
        }
    }
    m_seen = ended;
}
