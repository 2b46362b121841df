#include "RunFolder.h"

#include <OutputFile.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int numberWidth = 4;

// A lock whose writing was cut off says nothing of its owner and is taken over after this time, ms.
constexpr int cutLockAge = 2000;

QString runPrefix()
{
    return QStringLiteral("run_");
}

// The names of files that a run makes, also while it writes them.
const QRegularExpression& ownFiles()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\Amodel\\.(nec|out|csv|partial|pre)(\\.[A-Za-z]{6})?\\z"));
    return pattern;
}

// Entries are looked at without following links; a link is removed, never what it leads to.
void removeOwnFiles(const QString& folder)
{
    const QDir directory(folder);
    const QStringList names =
        directory.entryList(QDir::Files | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        if (ownFiles().match(name).hasMatch()) {
            QFile::remove(directory.filePath(name));
        }
    }
}

bool isRealFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink();
}

} // namespace

RunFolder::RunFolder(const QString& path)
    : m_path(path), m_lock(QDir(path).filePath(QStringLiteral("optkest.lock")))
{
    // A run takes as long as it takes; the lock of a process that is gone is free all the same.
    m_lock.setStaleLockTime(0);
}

RunFolder::~RunFolder()
{
    if (m_isOpen) {
        m_lock.unlock();
        QDir().rmdir(m_path);
    }
}

QString RunFolder::open()
{
    QDir().mkdir(m_path);
    const QString name = QFileInfo(m_path).fileName();
    if (QFileInfo(m_path).isSymLink()) {
        return QStringLiteral("the folder '%1' for the runs is a link, which is not followed")
            .arg(name);
    }
    if (!isRealFolder(m_path)) {
        return QStringLiteral("the folder '%1' for the runs cannot be made").arg(name);
    }
    QString error = takeLock();
    m_isOpen = error.isEmpty();
    return error;
}

QString RunFolder::takeLock()
{
    if (m_lock.tryLock(0)) {
        return {};
    }
    qint64 process = 0;
    QString host;
    QString program;
    const QString name = QFileInfo(m_path).fileName();
    if (m_lock.error() != QLockFile::LockFailedError) {
        return QStringLiteral("nothing can be written into the folder '%1'").arg(name);
    }
    if (m_lock.getLockInfo(&process, &host, &program)) {
        return QStringLiteral("another %1, process %2 on %3, is working on this model")
            .arg(program, QString::number(process), host);
    }
    m_lock.setStaleLockTime(cutLockAge);
    return m_lock.tryLock(0)
               ? QString()
               : QStringLiteral("the folder '%1' is locked by another optkest").arg(name);
}

QString RunFolder::statePath() const
{
    return QDir(m_path).filePath(QStringLiteral("optkest.json"));
}

QString RunFolder::filePath(int run, const QString& suffix) const
{
    return folderOf(run) + QStringLiteral("/model.") + suffix;
}

QString RunFolder::folderOf(int run) const
{
    const QString name =
        run == finalRun
            ? QStringLiteral("final")
            : runPrefix() + QStringLiteral("%1").arg(run, numberWidth, 10, QLatin1Char('0'));
    return QDir(m_path).filePath(name);
}

QString RunFolder::prepareRun(int run, const QByteArray& deck)
{
    const QString folder = folderOf(run);
    QDir().mkdir(folder);
    if (!isRealFolder(folder)) {
        return QStringLiteral("the folder '%1' of a run cannot be made")
            .arg(QFileInfo(folder).fileName());
    }
    removeOwnFiles(folder);
    suite::OutputFile file(filePath(run, QStringLiteral("nec")));
    return file.replace(deck)
               ? QString()
               : QStringLiteral("the model of a run cannot be written, ") + file.reason();
}

void RunFolder::removeRun(int run)
{
    const QString folder = folderOf(run);
    if (isRealFolder(folder)) {
        removeOwnFiles(folder);
        QDir().rmdir(folder);
    }
}

void RunFolder::removeRunsBehind(int run)
{
    static const QRegularExpression pattern(QStringLiteral("\\Arun_([0-9]{4,9})\\z"));
    const QStringList names = QDir(m_path).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch() && match.captured(1).toInt() > run) {
            removeRun(match.captured(1).toInt());
        }
    }
    removeRun(finalRun);
    if (run == 0) {
        QFile::remove(statePath());
    }
}
