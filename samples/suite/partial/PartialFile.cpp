// SPDX-License-Identifier: MIT
#include "PartialFile.h"

#include <Clause.h>
#include <FileLock.h>
#include <FileReplacement.h>
#include <InputFile.h>
#include <OutputFile.h>
#include <WriteAll.h>

#include <QFileInfo>

namespace suite {

PartialFile::PartialFile(const QString& path) : m_path(path)
{}

bool PartialFile::exists() const
{
    const QFileInfo info(m_path);
    return info.exists() || info.isSymLink();
}

bool PartialFile::open()
{
    InputFile place(m_path);
    if (QFileInfo(m_path).isSymLink()) {
        return refuse(QStringLiteral("it is a symbolic link"));
    }
    return (place.checkPlace() || refuse(place.reason())) && openAndLock();
}

bool PartialFile::openAndLock()
{
    m_file = std::make_unique<QFile>(m_path);
    if (!m_file->open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::ExistingOnly |
                      QIODevice::Unbuffered)) {
        return refuse(clause(m_file->errorString()));
    }
    // On a file system without locks the run continues without one.
    return (FileLock::take(*m_file) && FileLock::isAtItsPath(*m_file)) ||
           refuse(QStringLiteral("another run of this model writes it"));
}

bool PartialFile::replace(const QByteArray& content)
{
    if (!isOpen() && exists() && !open()) {
        return false;
    }
    if (!FileReplacement::isPossibleWhileOpen()) {
        m_file.reset();
    }
    OutputFile output(m_path);
    return (output.replace(content) || refuse(output.reason())) && openAndLock();
}

bool PartialFile::append(const QByteArray& line)
{
    const qint64 size = m_file->size();
    char last = '\n';
    const bool isReadable = size == 0 || (m_file->seek(size - 1) && m_file->getChar(&last));
    const QByteArray bytes = last == '\n' ? line : '\n' + line;
    m_error = isReadable && writeAll(*m_file, bytes) ? QString() : clause(m_file->errorString());
    return m_error.isEmpty();
}

void PartialFile::remove()
{
    const bool isOwn = m_file && FileLock::isAtItsPath(*m_file);
    if (!FileReplacement::isPossibleWhileOpen()) {
        m_file.reset();
    }
    if (isOwn) {
        QFile::remove(m_path);
    }
    m_file.reset();
}

bool PartialFile::refuse(const QString& error)
{
    m_error = error;
    m_file.reset();
    return false;
}

} // namespace suite
