// SPDX-License-Identifier: MIT
#include "common_WriteGuard.h"

#include <SpecialPath.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

namespace {

// What a window may stand still for, and much more than a write takes.
constexpr int longestWait = 900; // milliseconds

// Whoever seems to write for longer has left its guard behind, perhaps on another machine.
constexpr int longestWrite = 5000; // milliseconds

// Nobody queues, so whoever has waited for long tries more often than those who came later; but not
// so often that the writer misses the processor time.
unsigned long waitBetweenTries(qint64 waited)
{
    constexpr qint64 shortest = 400;                                           // microseconds
    return static_cast<unsigned long>(qMax(shortest, 100000 / (waited + 40))); // from milliseconds
}

QString guardedName(const QString& file)
{
    return file + QStringLiteral(".write");
}

// The lock file may not be one.
QString obstacle(const QString& lockFile)
{
    return QFileInfo(lockFile).isSymLink() ? QStringLiteral("a link") : SpecialPath::kind(lockFile);
}

} // namespace

common_WriteGuard::common_WriteGuard(const QString& file)
    : m_file(file), m_path(guardedName(file).toStdWString())
{
    QElapsedTimer waiting;
    waiting.start();
    while (!tryLock() && m_status == KEST_BINFILES_LOCKED_BY_OTHER_PROCESS &&
           !waiting.hasExpired(longestWait)) {
        KEST_binfiles_remove_left_lock(m_path.c_str(), longestWrite);
        QThread::usleep(waitBetweenTries(waiting.elapsed()));
    }
}

common_WriteGuard::~common_WriteGuard()
{
    if (m_handle != 0) {
        KEST_binfiles_remove_lock(m_path.c_str(), m_handle);
    }
}

QString common_WriteGuard::failure() const
{
    if (m_status == KEST_BINFILES_LOCK_TAKEN) {
        return QString();
    }
    if (m_status != KEST_BINFILES_LOCK_NOT_MADE) {
        return QStringLiteral("somebody else is writing it");
    }
    const QString lockFile = guardedName(m_file) + QStringLiteral(".kestlock");
    const QString kind = obstacle(lockFile);
    return kind.isEmpty() ? QStringLiteral("its folder cannot be written, or has no room")
                          : QStringLiteral("the lock file %1 is %2").arg(lockFile, kind);
}

bool common_WriteGuard::tryLock()
{
    m_status = KEST_binfiles_set_lock_hard(m_path.c_str(), 0, &m_handle);
    return m_status == KEST_BINFILES_LOCK_TAKEN;
}
