#include "common_SettingsFile.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QMap>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QThread>
#include <QVariant>

namespace {

// What a window may stand still for, and a small part of the time that a write takes. QLockFile
// waits longer and longer between its tries, so that one of many writers may starve.
constexpr int longestWait = 900;     // milliseconds
constexpr int waitBetweenTries = 1;  // milliseconds
constexpr qint64 leftGuardAge = 300; // milliseconds: no write takes that long

using Values = QMap<QString, QVariant>;

Values valuesOf(const QSettings& settings)
{
    Values values;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        values.insert(key, settings.value(key));
    }
    return values;
}

// A guard of a process that was killed is taken over: QLockFile does that where it can read it, and
// removeStaleLockFile() where only the system knows that nobody holds it any more.
bool lockGuard(QLockFile& guard, const QString& path)
{
    guard.setStaleLockTime(0);
    const QDeadlineTimer deadline(longestWait);
    while (!guard.tryLock(0)) {
        if (guard.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
            return false;
        }
        const QDateTime made = QFileInfo(path).lastModified();
        if (made.isValid() && made.msecsTo(QDateTime::currentDateTime()) > leftGuardAge) {
            guard.removeStaleLockFile();
        }
        QThread::msleep(waitBetweenTries);
    }
    return true;
}

} // namespace

common_SettingsFile::common_SettingsFile(const QString& fileName, QSettings::Format format)
    : m_fileName(fileName), m_format(format)
{}

QString common_SettingsFile::change(const std::function<void(QSettings&)>& change) const
{
    const QFileInfo file(m_fileName);
    if (!QDir().mkpath(file.absolutePath())) {
        return QStringLiteral("its folder cannot be made");
    }
    const QString guardPath = file.absoluteFilePath() + QStringLiteral(".kestwrite");
    QLockFile guard(guardPath);
    if (!lockGuard(guard, guardPath)) {
        return guard.error() == QLockFile::LockFailedError
                   ? QStringLiteral("another process is writing it")
                   : QStringLiteral("its folder cannot be written");
    }
    return changeUnderGuard(change);
}

// The change is made to a copy and read back, because QSettings does not notice a short write.
// Under a second name, because QSettings remembers what it wrote under the first.
QString common_SettingsFile::changeUnderGuard(const std::function<void(QSettings&)>& change) const
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("settings"));
    const QString written = folder.filePath(QStringLiteral("written"));
    if (QFile::exists(m_fileName) && !QFile::copy(m_fileName, copy)) {
        return QStringLiteral("it cannot be read");
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    Values expected;
    {
        QSettings settings(copy, m_format);
        if (settings.status() == QSettings::FormatError) {
            keepDamaged();
        }
        change(settings);
        expected = valuesOf(settings);
    }
    QFile file(written);
    if (!QFile::rename(copy, written) || !file.open(QIODevice::ReadOnly) ||
        valuesOf(QSettings(written, m_format)) != expected) {
        return QStringLiteral("there is no room in %1").arg(folder.path());
    }
    return replace(file.readAll());
}

QString common_SettingsFile::replace(const QByteArray& content) const
{
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
        !file.commit()) {
        return file.errorString();
    }
    return QString();
}

void common_SettingsFile::keepDamaged() const
{
    const QString kept = m_fileName + QStringLiteral(".damaged");
    if (!QFile::exists(kept) && QFile::copy(m_fileName, kept)) {
        qWarning("The settings file %s is damaged; a copy is kept in %s.",
                 qUtf8Printable(m_fileName), qUtf8Printable(kept));
    }
}
