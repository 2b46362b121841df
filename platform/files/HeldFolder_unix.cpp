// SPDX-License-Identifier: MIT
#include "HeldFolder.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Another process may have removed the folder and made it again.
bool isAt(int descriptor, const QByteArray& name)
{
    struct stat opened = {};
    struct stat current = {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(name.constData(), &current) == 0 &&
           opened.st_ino == current.st_ino && opened.st_dev == current.st_dev;
}

} // namespace

bool HeldFolder::make(const QString& path)
{
    if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0 || errno == EEXIST) {
        return true;
    }
    m_error = systemError();
    return false;
}

HeldFolder::Result HeldFolder::hold(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int descriptor =
        ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) {
        if (errno == ENOENT) {
            return Result::Missing;
        }
        m_error = systemError();
        return errno == ENOTDIR || errno == ELOOP ? Result::OtherKind : Result::Failed;
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        ::close(descriptor);
        return Result::InUse;
    }
    if (!isAt(descriptor, name)) {
        ::close(descriptor);
        return Result::Missing;
    }
    m_path = path;
    m_handle = descriptor;
    return Result::Held;
}

void HeldFolder::release()
{
    if (isHeld()) {
        ::close(static_cast<int>(std::exchange(m_handle, notOpen)));
    }
}

void HeldFolder::remove()
{
    ::rmdir(QFile::encodeName(m_path).constData());
    release();
}
