// SPDX-License-Identifier: MIT
#include <KEST_binfiles.h>

#include "LockFile.h"
#include "LockOwner.h"

#include <KEST_binfiles_paths.h>
#include <SamePath.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <map>
#include <memory>

namespace {

// Not ".lock": QSettings takes a lock of that name whenever it writes, and would wait for ever.
const char* const lockSuffix = ".kestlock";

struct Lock
{
    QString path;
    std::unique_ptr<LockFile> file;
};

using Locks = std::map<uint64_t, Lock>;

Locks& locks()
{
    static Locks held;
    return held;
}

QString realPath(const wchar_t* path)
{
    return KEST_binfiles_real_path(QString::fromWCharArray(path));
}

QString lockPath(const QString& path)
{
    return path + QLatin1String(lockSuffix);
}

bool isHeldHere(const QString& path)
{
    return std::any_of(locks().cbegin(), locks().cend(), [&path](const Locks::value_type& held) {
        return SamePath::areEqual(held.second.path, path);
    });
}

uint64_t newHandle()
{
    static uint64_t last = 0;
    return ++last;
}

void copyTo(char* buffer, size_t size, const QString& text)
{
    if (buffer && size > 0) {
        qstrncpy(buffer, text.toUtf8().constData(), static_cast<uint>(size));
    }
}

} // namespace

int KEST_binfiles_set_lock_hard(const wchar_t* path, int /*option*/, uint64_t* handle)
{
    QDir().mkpath(QFileInfo(realPath(path)).absolutePath());
    const QString file = realPath(path); // again, because missing folders had no real path
    if (isHeldHere(file)) {
        return KEST_BINFILES_LOCKED_BY_THIS_PROCESS;
    }
    if (LockFile::isBlocked(lockPath(file))) {
        return KEST_BINFILES_LOCK_NOT_MADE;
    }
    LockFile::Result result = LockFile::take(lockPath(file));
    switch (result.status) {
    case LockFile::Status::HeldByOther:
        return KEST_BINFILES_LOCKED_BY_OTHER_PROCESS;
    case LockFile::Status::NotMade:
        return KEST_BINFILES_LOCK_NOT_MADE;
    case LockFile::Status::Taken:
        break;
    }
    *handle = newHandle();
    locks()[*handle] = Lock{file, std::move(result.lock)};
    return KEST_BINFILES_LOCK_TAKEN;
}

int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle)
{
    const auto held = locks().find(handle);
    if (held == locks().end() || !SamePath::areEqual(held->second.path, realPath(path))) {
        return 1;
    }
    locks().erase(held);
    return 0;
}

void KEST_binfiles_remove_left_lock(const wchar_t* path, int64_t milliseconds)
{
    LockFile::removeLeft(lockPath(realPath(path)), milliseconds);
}

int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host, size_t hostSize)
{
    return KEST_binfiles_lock_owner_program(path, host, hostSize, nullptr, 0);
}

int64_t KEST_binfiles_lock_owner_program(const wchar_t* path, char* host, size_t hostSize,
                                         char* program, size_t programSize)
{
    LockOwner owner = LockOwner::of(lockPath(realPath(path)));
    if (owner.hasEnded()) {
        owner = LockOwner();
    }
    copyTo(host, hostSize, owner.host);
    copyTo(program, programSize, owner.program);
    return owner.process;
}
