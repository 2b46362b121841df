#include "PartialFile.h"

#include <InputFile.h>
#include <OutputFile.h>
#include <WriteAll.h>

#include <QFileInfo>

#include <cerrno>

#include <sys/file.h>
#include <sys/stat.h>

namespace suite {

PartialFile::PartialFile(const QString& path) : m_path(path)
{}

bool PartialFile::exists() const
{
    const QFileInfo info(m_path);
    return info.exists() || info.isSymLink();
}

bool PartialFile::open()
{
    InputFile place(m_path);
    if (QFileInfo(m_path).isSymLink()) {
        return refuse(QStringLiteral("it is a symbolic link"));
    }
    return (place.checkPlace() || refuse(place.reason())) && openAndLock();
}

bool PartialFile::openAndLock()
{
    m_file = std::make_unique<QFile>(m_path);
    if (!m_file->open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::ExistingOnly |
                      QIODevice::Unbuffered)) {
        return refuse(m_file->errorString());
    }
    // On a file system without locks the run continues without one.
    const bool isUsedByOther =
        ::flock(m_file->handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return (!isUsedByOther && isStillThere()) ||
           refuse(QStringLiteral("another run of this model writes it"));
}

bool PartialFile::replace(const QByteArray& content)
{
    if (!isOpen() && exists() && !open()) {
        return false;
    }
    OutputFile output(m_path);
    return (output.replace(content) || refuse(output.reason())) && openAndLock();
}

bool PartialFile::append(const QByteArray& line)
{
    const qint64 size = m_file->size();
    char last = '\n';
    const bool isReadable = size == 0 || (m_file->seek(size - 1) && m_file->getChar(&last));
    const QByteArray bytes = last == '\n' ? line : '\n' + line;
    m_error = isReadable && writeAll(*m_file, bytes) ? QString() : m_file->errorString();
    return m_error.isEmpty();
}

void PartialFile::remove()
{
    if (m_file && isStillThere()) {
        QFile::remove(m_path);
    }
    m_file.reset();
}

bool PartialFile::isStillThere() const
{
    struct stat opened = {};
    struct stat current = {};
    return ::fstat(m_file->handle(), &opened) == 0 &&
           ::lstat(QFile::encodeName(m_path).constData(), &current) == 0 &&
           opened.st_ino == current.st_ino && opened.st_dev == current.st_dev;
}

bool PartialFile::refuse(const QString& error)
{
    m_error = error;
    m_file.reset();
    return false;
}

} // namespace suite
