// SPDX-License-Identifier: MIT
#include "LockFile.h"

#include "LockOwner.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <utility>

#include <windows.h>

namespace {

constexpr qint64 longestWait = 500;        // milliseconds
constexpr unsigned long retryPause = 1000; // microseconds

// In the form that has no limit of 260 characters. The path is absolute.
QString extendedPath(const QString& path)
{
    const QString native = QDir::toNativeSeparators(path);
    return native.startsWith(QLatin1String("\\\\")) ? QStringLiteral("\\\\?\\UNC\\") + native.mid(2)
                                                    : QStringLiteral("\\\\?\\") + native;
}

/// A lock file, open for writing, which one process at a time can have. The system closes it with
/// the process. Others may read it; as long as it is open, it can be neither deleted nor renamed.
class OpenedFile
{
public:
    OpenedFile(const QString& path, DWORD disposition)
        : m_path(extendedPath(path))
        , m_handle(CreateFileW(name(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                               disposition, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT,
                               nullptr))
        , m_error(isOpen() ? ERROR_SUCCESS : GetLastError())
    {}
    OpenedFile(OpenedFile&& other) noexcept
        : m_path(std::move(other.m_path))
        , m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE))
        , m_error(other.m_error)
    {}
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    OpenedFile& operator=(OpenedFile&&) = delete;
    ~OpenedFile() { close(); }

    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    DWORD error() const { return m_error; }

    LockOwner owner() const
    {
        QByteArray bytes(LockOwner::mostBytes + 1, '\0');
        DWORD count = 0;
        const bool isRead =
            SetFilePointer(m_handle, 0, nullptr, FILE_BEGIN) == 0 &&
            ReadFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
        return LockOwner::parse(bytes.left(isRead ? static_cast<int>(count) : 0));
    }

    bool setOwner(const LockOwner& owner) const { return write(owner.content()); }

    // An empty lock file names no owner, should it not be possible to delete it: a reader may have
    // it open. When another process has taken it meanwhile, deleting fails, too.
    void remove()
    {
        write(QByteArray());
        close();
        DeleteFileW(name());
    }

private:
    const wchar_t* name() const { return reinterpret_cast<const wchar_t*>(m_path.utf16()); }

    bool write(const QByteArray& content) const
    {
        DWORD count = 0;
        return SetFilePointer(m_handle, 0, nullptr, FILE_BEGIN) == 0 && SetEndOfFile(m_handle) &&
               WriteFile(m_handle, content.constData(), static_cast<DWORD>(content.size()), &count,
                         nullptr) &&
               count == static_cast<DWORD>(content.size());
    }

    void close()
    {
        if (isOpen()) {
            CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE));
        }
    }

    QString m_path;
    HANDLE m_handle;
    DWORD m_error;
};

/// A lock file that this process has open.
class SystemLockFile : public LockFile
{
public:
    explicit SystemLockFile(OpenedFile file) : m_file(std::move(file)) {}
    SystemLockFile(const SystemLockFile&) = delete;
    SystemLockFile& operator=(const SystemLockFile&) = delete;
    ~SystemLockFile() override { m_file.remove(); }

private:
    OpenedFile m_file;
};

// Somebody has it open: its owner, or a reader that allows no writing. A file that is being deleted
// is "denied" until its last reader has closed it.
bool isInUse(DWORD error, const QString& path)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_DELETE_PENDING ||
           (error == ERROR_ACCESS_DENIED && QFileInfo(path).isWritable());
}

bool isComingOrGoing(const QString& path)
{
    const LockOwner owner = LockOwner::of(path);
    return !owner.isKnown() || owner.hasEnded();
}

} // namespace

LockFile::Result LockFile::take(const QString& path)
{
    QElapsedTimer waiting;
    waiting.start();
    while (true) {
        OpenedFile file(path, OPEN_ALWAYS);
        if (file.isOpen()) {
            if (file.owner().isElsewhere()) {
                return {Status::HeldByOther, nullptr};
            }
            if (file.setOwner(LockOwner::self())) {
                return {Status::Taken, std::make_unique<SystemLockFile>(std::move(file))};
            }
            file.remove();
            return {Status::NotMade, nullptr};
        }
        if (!isInUse(file.error(), path)) {
            return {Status::NotMade, nullptr};
        }
        if (!isComingOrGoing(path) || waiting.hasExpired(longestWait)) {
            return {Status::HeldByOther, nullptr};
        }
        QThread::usleep(retryPause);
    }
}

void LockFile::removeLeft(const QString& path, qint64 milliseconds)
{
    const QFileInfo lockFile(path);
    if (lockFile.isFile() && !lockFile.isSymLink() &&
        lockFile.lastModified().msecsTo(QDateTime::currentDateTime()) > milliseconds) {
        OpenedFile file(path, OPEN_EXISTING);
        if (file.isOpen()) {
            file.remove();
        }
    }
}

bool LockFile::isBlocked(const QString& path)
{
    const QFileInfo lockFile(path);
    return lockFile.isSymLink() || (lockFile.exists() && !lockFile.isFile());
}
