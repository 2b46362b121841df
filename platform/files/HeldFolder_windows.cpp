// SPDX-License-Identifier: MIT
#include "HeldFolder.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

#include <windows.h>

bool HeldFolder::make(const QString& path)
{
    if (QDir().mkdir(path) || QFileInfo::exists(path)) {
        return true;
    }
    m_error = QStringLiteral("the system refuses it");
    return false;
}

// The right to add files can be had once, where it is not shared. Everybody may list the folder
// meanwhile, also who does not share the right to delete.
HeldFolder::Result HeldFolder::hold(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        return Result::Missing;
    }
    if (!info.isDir() || info.isSymLink()) {
        return Result::OtherKind;
    }
    const QString name = QDir::toNativeSeparators(info.absoluteFilePath());
    const HANDLE handle =
        CreateFileW(reinterpret_cast<const wchar_t*>(name.utf16()),
                    FILE_LIST_DIRECTORY | FILE_ADD_FILE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        m_path = path;
        m_handle = reinterpret_cast<qintptr>(handle);
        return Result::Held;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_SHARING_VIOLATION) {
        return Result::InUse;
    }
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_DELETE_PENDING) {
        return Result::Missing;
    }
    m_error = qt_error_string(static_cast<int>(error));
    return Result::Failed;
}

void HeldFolder::release()
{
    if (isHeld()) {
        CloseHandle(reinterpret_cast<HANDLE>(std::exchange(m_handle, notOpen)));
    }
}

// A folder that is open cannot be removed.
void HeldFolder::remove()
{
    release();
    QDir().rmdir(m_path);
}
