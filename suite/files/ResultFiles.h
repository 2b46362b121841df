// SPDX-License-Identifier: MIT
#pragma once

#include "OutputFile.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace suite {

/// The files that a run writes beside the model. commit() replaces the old files, and only if all
/// new ones are complete. Without commit() nothing changes.
class ResultFiles
{
public:
    /// Opens the files; false when one cannot be written. Symbolic links are refused.
    bool open(const QStringList& paths);

    /// Appends to a file, by its index.
    bool write(int index, const QByteArray& bytes);

    /// Appends the content of another file, however large it is.
    bool copy(int index, const QString& source);

    /// Puts the new files in place of the old ones.
    bool commit();

    /// Opens one file, writes this content, and puts it in place of the old file.
    bool replace(const QString& path, const QByteArray& content);

    /// The files that were opened.
    [[nodiscard]] QStringList paths() const;

    /// What went wrong, with the file's name.
    [[nodiscard]] QString error() const { return m_error; }

private:
    bool fail(const QString& path, const QString& reason);

    std::vector<std::unique_ptr<OutputFile>> m_files;
    QString m_error;
};

} // namespace suite
