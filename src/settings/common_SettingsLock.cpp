// SPDX-License-Identifier: MIT
#include <common_SettingsLock.h>

#include <KEST_binfiles.h>
#include <common_settings.h>

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

#include <algorithm>
#include <string>

namespace {

// Random, so that processes that wait for each other do not keep in step.
constexpr int shortestPause = 5; // milliseconds
constexpr int longestPause = 25; // milliseconds

// Another program has written it: nothing in it may control a terminal.
QString printable(const char* name)
{
    QString text = QString::fromUtf8(name);
    std::replace_if(
        text.begin(), text.end(), [](QChar each) { return !each.isPrint(); }, QLatin1Char('?'));
    return text;
}

void pause(qint64 longest)
{
    const int random = QRandomGenerator::global()->bounded(shortestPause, longestPause);
    QThread::msleep(static_cast<unsigned long>(std::min<qint64>(random, longest)));
}

QString problemOf(common_SettingsLock::Failure failure, const QString& fileName,
                  const QString& owner)
{
    switch (failure) {
    case common_SettingsLock::HeldByOther:
        return QStringLiteral("%1 is locked by %2")
            .arg(fileName, owner.isEmpty() ? QStringLiteral("another process") : owner);
    case common_SettingsLock::HeldByThis:
        return QStringLiteral("%1 is locked by another part of this program").arg(fileName);
    case common_SettingsLock::CannotMakeLock:
        return QStringLiteral("%1 cannot be locked: the file %1.kestlock cannot be made")
            .arg(fileName);
    default:
        return QString();
    }
}

} // namespace

common_SettingsLock::common_SettingsLock(const common_settings& settings)
    : common_SettingsLock(settings.getFileName())
{}

common_SettingsLock::common_SettingsLock(const QString& fileName)
    : m_fileName(QFileInfo(fileName).absoluteFilePath())
{}

common_SettingsLock::~common_SettingsLock()
{
    unlock();
}

bool common_SettingsLock::tryLock(std::chrono::milliseconds timeout)
{
    const QDeadlineTimer deadline(timeout);
    m_failure = tryOnce();
    while (m_failure == HeldByOther && !deadline.hasExpired()) {
        pause(deadline.remainingTime());
        m_failure = tryOnce();
    }
    m_problem = problemOf(m_failure, m_fileName, owner());
    return m_failure == NoFailure;
}

void common_SettingsLock::unlock()
{
    if (m_handle != 0) {
        KEST_binfiles_remove_lock(m_fileName.toStdWString().c_str(), m_handle);
        m_handle = 0;
    }
}

bool common_SettingsLock::isLocked() const
{
    return m_handle != 0;
}

common_SettingsLock::Failure common_SettingsLock::failure() const
{
    return m_failure;
}

QString common_SettingsLock::problem() const
{
    return m_problem;
}

QString common_SettingsLock::owner() const
{
    char host[256] = "";
    char program[256] = "";
    const qint64 process = KEST_binfiles_lock_owner_program(m_fileName.toStdWString().c_str(), host,
                                                            sizeof host, program, sizeof program);
    if (process == 0) {
        return QString();
    }
    const QString name = QStringLiteral("process %1 on %2").arg(process).arg(printable(host));
    return *program == '\0' ? name : QStringLiteral("%1 as %2").arg(printable(program), name);
}

common_SettingsLock::Failure common_SettingsLock::tryOnce()
{
    if (isLocked()) {
        return NoFailure;
    }
    switch (KEST_binfiles_set_lock_hard(m_fileName.toStdWString().c_str(), 0, &m_handle)) {
    case KEST_BINFILES_LOCK_TAKEN:
        return NoFailure;
    case KEST_BINFILES_LOCKED_BY_OTHER_PROCESS:
        return HeldByOther;
    case KEST_BINFILES_LOCKED_BY_THIS_PROCESS:
        return HeldByThis;
    default:
        return CannotMakeLock;
    }
}
