#include "WorkFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace suite {

namespace {

// Another run may remove the folder between two of our steps.
constexpr int mostAttempts = 10;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool makeDirectory(const QString& path)
{
    return ::mkdir(QFile::encodeName(path).constData(), 0777) == 0;
}

bool isRealFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink();
}

QStringList entriesOf(const QString& path)
{
    return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                QDir::NoDotAndDotDot);
}

void removePlainFiles(const QString& folder, const QRegularExpression& names)
{
    if (!isRealFolder(folder)) {
        return;
    }
    const QStringList entries = entriesOf(folder);
    for (const QString& entry : entries) {
        const QFileInfo info(QDir(folder).filePath(entry));
        if (info.isFile() && !info.isSymLink() && names.match(entry).hasMatch()) {
            QFile::remove(info.filePath());
        }
    }
}

} // namespace

WorkFolder::WorkFolder(QString path, QString program)
    : m_path(std::move(path)), m_program(std::move(program))
{}

WorkFolder::~WorkFolder()
{
    if (isOpen()) {
        removeIfEmpty();
        ::close(m_descriptor);
    }
}

bool WorkFolder::open()
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        switch (tryOpen()) {
        case Attempt::Done:
            return takeOver();
        case Attempt::Failed:
            return false;
        case Attempt::Again:
            break;
        }
    }
    return fail(QStringLiteral("other runs use it"));
}

WorkFolder::Attempt WorkFolder::tryOpen()
{
    const QByteArray name = QFile::encodeName(m_path);
    if (!makeDirectory(m_path) && errno != EEXIST) {
        fail(QStringLiteral("it cannot be made, ") + systemError());
        return Attempt::Failed;
    }
    const int descriptor =
        ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) {
        if (errno == ENOENT) {
            return Attempt::Again;
        }
        fail(errno == ENOTDIR || errno == ELOOP
                 ? QStringLiteral("something else has this name")
                 : QStringLiteral("it cannot be opened, ") + systemError());
        return Attempt::Failed;
    }
    // Where the file system knows no locks the run goes on without.
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        fail(QStringLiteral("another run of %1 on this model uses it").arg(m_program));
        ::close(descriptor);
        return Attempt::Failed;
    }
    struct stat opened = {};
    struct stat current = {};
    if (::fstat(descriptor, &opened) != 0 || ::lstat(name.constData(), &current) != 0 ||
        opened.st_ino != current.st_ino || opened.st_dev != current.st_dev) {
        ::close(descriptor);
        return Attempt::Again;
    }
    m_descriptor = descriptor;
    return Attempt::Done;
}

// An empty folder is as good as a new one: an earlier run may have been killed right there.
bool WorkFolder::takeOver()
{
    const QString mark = path(markName());
    const QFileInfo info(mark);
    bool isOurs = info.isFile() && !info.isSymLink();
    if (!isOurs && entriesOf(m_path).isEmpty()) {
        QFile file(mark);
        isOurs = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
        if (!isOurs) {
            fail(QStringLiteral("nothing can be written into it, ") + file.errorString());
        }
    } else if (!isOurs) {
        fail(QStringLiteral("it was not made by %1").arg(m_program));
    }
    if (!isOurs) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
    return isOurs;
}

QString WorkFolder::path(const QString& name) const
{
    return m_path + QLatin1Char('/') + name;
}

bool WorkFolder::makeFolder(const QString& name)
{
    if (makeDirectory(path(name)) || (errno == EEXIST && isRealFolder(path(name)))) {
        return true;
    }
    return fail(QStringLiteral("no folder '%1' can be made in it").arg(name));
}

void WorkFolder::removeFiles(const QRegularExpression& names) const
{
    removePlainFiles(m_path, names);
}

void WorkFolder::removeFolder(const QString& name, const QRegularExpression& names) const
{
    for (int end = name.indexOf(QLatin1Char('/')); end >= 0;
         end = name.indexOf(QLatin1Char('/'), end + 1)) {
        if (!isRealFolder(path(name.left(end)))) {
            return;
        }
    }
    removePlainFiles(path(name), names);
    ::rmdir(QFile::encodeName(path(name)).constData());
}

bool WorkFolder::fail(const QString& reason)
{
    m_error = QStringLiteral("the folder '%1' cannot be used, %2")
                  .arg(QFileInfo(m_path).fileName(), reason);
    return false;
}

void WorkFolder::removeIfEmpty()
{
    if (entriesOf(m_path) == QStringList(markName())) {
        QFile::remove(path(markName()));
        ::rmdir(QFile::encodeName(m_path).constData());
    }
}

QString WorkFolder::markName() const
{
    return QStringLiteral("made_by_") + m_program;
}

} // namespace suite
