// SPDX-License-Identifier: MIT
#include "FileIdentity.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace suite {

namespace {

std::filesystem::path standardPath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

// Through the links that lead to its folder; the file itself may be missing.
QString placeOf(const QString& path)
{
    const QFileInfo file(path);
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? QDir::cleanPath(file.absoluteFilePath())
                            : QDir(folder).filePath(file.fileName());
}

} // namespace

bool isSameFile(const QString& left, const QString& right)
{
    std::error_code error;
    return std::filesystem::equivalent(standardPath(left), standardPath(right), error) ||
           placeOf(left) == placeOf(right);
}

} // namespace suite
