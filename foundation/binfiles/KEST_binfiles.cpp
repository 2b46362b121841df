#include <KEST_binfiles.h>

#include "FileLock.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <map>
#include <memory>

namespace {

// Not ".lock": QSettings takes that one itself whenever it writes, and would wait for ever.
const char* const lockSuffix = ".kestlock";

struct Lock
{
    QString path;
    std::unique_ptr<FileLock> file;
};

using Locks = std::map<uint64_t, Lock>;

Locks& locks()
{
    static Locks held;
    return held;
}

QString absolutePath(const wchar_t* path)
{
    const QFileInfo file(QString::fromWCharArray(path));
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

QString lockPath(const QString& path)
{
    return path + QLatin1String(lockSuffix);
}

Locks::iterator lockOf(const QString& path)
{
    return std::find_if(locks().begin(), locks().end(), [&path](const Locks::value_type& held) {
        return held.second.path == path;
    });
}

uint64_t newHandle()
{
    static uint64_t last = 0;
    return ++last;
}

} // namespace

int KEST_binfiles_set_lock_hard(const wchar_t* path, int /*option*/, uint64_t* handle)
{
    QDir().mkpath(QFileInfo(QString::fromWCharArray(path)).absolutePath());
    const QString file = absolutePath(path);
    if (lockOf(file) != locks().end()) {
        return KEST_BINFILES_LOCKED_BY_THIS_PROCESS;
    }
    auto lock = std::make_unique<FileLock>(lockPath(file));
    const FileLock::Outcome outcome = lock->tryTake();
    if (outcome != FileLock::Taken) {
        return outcome == FileLock::HeldElsewhere ? KEST_BINFILES_LOCKED_BY_OTHER_PROCESS
                                                  : KEST_BINFILES_LOCK_NOT_MADE;
    }
    *handle = newHandle();
    locks()[*handle] = Lock{file, std::move(lock)};
    return KEST_BINFILES_LOCK_TAKEN;
}

int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle)
{
    const auto held = locks().find(handle);
    if (held == locks().end() || held->second.path != absolutePath(path)) {
        return 1;
    }
    locks().erase(held);
    return 0;
}

int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host, size_t hostSize)
{
    constexpr qint64 longestOwner = 1000; // bytes
    QFile file(lockPath(absolutePath(path)));
    QList<QByteArray> lines;
    if (file.open(QIODevice::ReadOnly)) {
        lines = file.read(longestOwner).split('\n');
    }
    const QByteArray hostName = lines.value(2);
    if (host && hostSize > 0) {
        qstrncpy(host, hostName.constData(), static_cast<uint>(hostSize));
    }
    return lines.value(0).toLongLong();
}
