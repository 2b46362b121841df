#pragma once

#include <QSaveFile>
#include <QStringList>

#include <memory>
#include <vector>

namespace suite {

/// The files that a run leaves beside the model. Each is written under another name first; the old
/// ones are replaced at the end, and only when all new ones are whole. Without commit() nothing
/// changes.
class ResultFiles
{
public:
    /// Opens the files; false when one cannot be written.
    bool open(const QStringList& paths);

    /// Appends to a file, by its index.
    bool write(int index, const QByteArray& bytes);

    /// Puts the new files in place of the old ones.
    bool commit();

    /// What went wrong, with the file's name.
    [[nodiscard]] QString error() const { return m_error; }

private:
    bool fail(const QSaveFile& file);

    std::vector<std::unique_ptr<QSaveFile>> m_files;
    QString m_error;
};

} // namespace suite
