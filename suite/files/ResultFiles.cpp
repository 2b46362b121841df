// SPDX-License-Identifier: MIT
#include "ResultFiles.h"

#include "InputFile.h"

#include <QFileInfo>

namespace suite {

bool ResultFiles::open(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (QFileInfo(path).isSymLink()) {
            return fail(path, QStringLiteral("it is a symbolic link"));
        }
        m_files.push_back(std::make_unique<OutputFile>(path));
        if (!m_files.back()->open()) {
            return fail(path, m_files.back()->reason());
        }
    }
    return true;
}

bool ResultFiles::write(int index, const QByteArray& bytes)
{
    OutputFile& file = *m_files.at(static_cast<std::size_t>(index));
    return file.append(bytes) || fail(file.path(), file.reason());
}

bool ResultFiles::copy(int index, const QString& source)
{
    InputFile file(source);
    const auto append = [this, index](const QByteArray& piece) { return write(index, piece); };
    if (file.readPieces(append)) {
        return true;
    }
    return file.problem() == InputFile::Problem::None
               ? false
               : fail(m_files.at(static_cast<std::size_t>(index))->path(),
                      QStringLiteral("its content '%1' cannot be read, %2")
                          .arg(QFileInfo(source).fileName(), file.reason()));
}

bool ResultFiles::commit()
{
    for (const auto& file : m_files) {
        if (!file->isWhole()) {
            return fail(file->path(), file->reason());
        }
    }
    for (const auto& file : m_files) {
        if (!file->commit()) {
            return fail(file->path(), file->reason());
        }
    }
    return true;
}

bool ResultFiles::replace(const QString& path, const QByteArray& content)
{
    return open({path}) && write(0, content) && commit();
}

QStringList ResultFiles::paths() const
{
    QStringList result;
    for (const auto& file : m_files) {
        result.append(file->path());
    }
    return result;
}

bool ResultFiles::fail(const QString& path, const QString& reason)
{
    m_error = QStringLiteral("the result file '%1' cannot be written, %2")
                  .arg(QFileInfo(path).fileName(), reason);
    return false;
}

} // namespace suite
