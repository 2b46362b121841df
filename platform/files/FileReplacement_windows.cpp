// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include <windows.h>

namespace {

constexpr unsigned long pause = 5;    // milliseconds
constexpr int longestPlainName = 248; // as for folders, which is less than for files

// With the prefix that long names need. Names with the prefix are taken as they are.
std::wstring nativeName(const QString& path)
{
    const QString name =
        QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (name.size() < longestPlainName) {
        return name.toStdWString();
    }
    const bool isShare = name.startsWith(QLatin1String("\\\\"));
    return (isShare ? L"\\\\?\\UNC\\" + name.mid(2).toStdWString()
                    : L"\\\\?\\" + name.toStdWString());
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

// FILE_RENAME_INFO, which ends with the name.
std::vector<char> renameInfo(const std::wstring& newName)
{
    const std::size_t size = newName.size() * sizeof(wchar_t);
    std::vector<char> result(sizeof(FILE_RENAME_INFO) + size);
    FILE_RENAME_INFO info = {};
    info.FileNameLength = static_cast<DWORD>(size);
    std::memcpy(result.data(), &info, sizeof info);
    std::memcpy(result.data() + offsetof(FILE_RENAME_INFO, FileName), newName.data(), size);
    return result;
}

// With the file open for this program alone. MoveFileEx() lets another program open it as well,
// which then renames it once more, or keeps it from being read; QFile copies it.
bool renameAlone(const std::wstring& name, const std::wstring& newName)
{
    const HANDLE file = CreateFileW(name.c_str(), DELETE | SYNCHRONIZE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    std::vector<char> info = renameInfo(newName);
    const bool isRenamed = SetFileInformationByHandle(file, FileRenameInfo, info.data(),
                                                      static_cast<DWORD>(info.size()));
    const DWORD error = GetLastError();
    CloseHandle(file);
    SetLastError(error);
    return isRenamed;
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

bool FileReplacement::rename(const QString& path, const QString& newPath)
{
    return repeat(
        [from = nativeName(path), to = nativeName(newPath)] { return renameAlone(from, to); });
}

bool FileReplacement::remove(const QString& path)
{
    return repeat([name = nativeName(path)] { return DeleteFileW(name.c_str()) != 0; });
}
