// SPDX-License-Identifier: MIT
#include "FileUse.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

#include <windows.h>

namespace {

constexpr int longestWait = 900;   // milliseconds, as for settings files
constexpr unsigned long pause = 5; // milliseconds

bool isInUse(const std::wstring& name)
{
    const HANDLE file = CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(file);
    return false;
}

} // namespace

void suite::FileUse::waitForEnd(const QString& path)
{
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    const QDeadlineTimer deadline(longestWait);
    while (isInUse(name) && !deadline.hasExpired()) {
        QThread::msleep(pause);
    }
}
