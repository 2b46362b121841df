// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

#include <windows.h>

namespace {

constexpr unsigned long pause = 5; // milliseconds

std::wstring nativeName(const QString& path)
{
    return QDir::toNativeSeparators(path).toStdWString();
}

// Until it is done, or fails for another reason than that a program has the file open.
template <typename Step>
bool repeat(Step step)
{
    const QDeadlineTimer deadline(FileReplacement::longestWait());
    while (!step()) {
        if (GetLastError() != ERROR_SHARING_VIOLATION || deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pause);
    }
    return true;
}

} // namespace

bool FileReplacement::isPossibleWhileOpen()
{
    return false;
}

// A file that another process has open, even for reading, cannot be replaced. Programs that read
// settings have them open for a few milliseconds; a window may stand still for a second.
int FileReplacement::longestWait()
{
    return 900;
}

// Not by QFile, which copies a file that it cannot rename: other programs cannot rename it then.
bool FileReplacement::rename(const QString& path, const QString& newPath)
{
    return repeat([from = nativeName(path), to = nativeName(newPath)] {
        return MoveFileExW(from.c_str(), to.c_str(), 0) != 0;
    });
}

bool FileReplacement::remove(const QString& path)
{
    return repeat([name = nativeName(path)] { return DeleteFileW(name.c_str()) != 0; });
}
