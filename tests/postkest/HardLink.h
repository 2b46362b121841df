// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QString>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <unistd.h>
#endif

/// A second name of a file.
namespace HardLink {

inline bool make(const QString& file, const QString& link)
{
#ifdef Q_OS_WIN
    const std::wstring oldName = QDir::toNativeSeparators(file).toStdWString();
    const std::wstring newName = QDir::toNativeSeparators(link).toStdWString();
    return CreateHardLinkW(newName.c_str(), oldName.c_str(), nullptr) != 0;
#else
    return ::link(QFile::encodeName(file).constData(), QFile::encodeName(link).constData()) == 0;
#endif
}

} // namespace HardLink
