// SPDX-License-Identifier: MIT
#include "TemporaryFolder.h"

#include "Clause.h"
#include "WriteAll.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace suite {

namespace {

bool isChosen()
{
    return !qEnvironmentVariableIsEmpty("TMPDIR");
}

} // namespace

TemporaryFolder::TemporaryFolder(const QString& name) : m_error(placeProblem())
{
    if (m_error.isEmpty()) {
        m_folder.emplace(QDir(place()).filePath(name + QStringLiteral("-XXXXXX")));
        if (!m_folder->isValid()) {
            m_error = unusable(m_folder->errorString());
            m_folder.reset();
        }
    }
}

QString TemporaryFolder::path() const
{
    return m_folder ? m_folder->path() : QString();
}

QString TemporaryFolder::filePath(const QString& name) const
{
    return m_folder ? m_folder->filePath(name) : QString();
}

QString TemporaryFolder::place()
{
    return isChosen() ? QDir::cleanPath(
                            QDir::current().absoluteFilePath(QFile::decodeName(qgetenv("TMPDIR"))))
                      : QDir::tempPath();
}

QString TemporaryFolder::placeProblem()
{
    const QFileInfo info(place());
    if (!info.exists()) {
        return unusable(QStringLiteral("it does not exist"));
    }
    return info.isDir() ? QString() : unusable(QStringLiteral("it is not a folder"));
}

QString TemporaryFolder::writeProblem(const QString& folder)
{
    constexpr int enough = 64 << 10; // bytes
    QTemporaryFile file(QDir(folder).filePath(QStringLiteral("room-XXXXXX")));
    const bool isWritten = file.open() && writeAll(file, QByteArray(enough, '\0')) && file.flush();
    return isWritten ? QString() : unusable(file.errorString());
}

QString TemporaryFolder::writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, content);
    return isWritten ? QString() : unusable(file.errorString());
}

QString TemporaryFolder::unusable(const QString& reason)
{
    return QStringLiteral("the temporary folder '%1' cannot be used, %2 (TMPDIR %3)")
        .arg(place(), clause(reason),
             isChosen() ? QStringLiteral("names it") : QStringLiteral("names another"));
}

} // namespace suite
