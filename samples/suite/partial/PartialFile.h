// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <memory>

namespace suite {

/// A file of lines to which one process at a time appends. Each addition is one write, so that a
/// killed process leaves complete lines, except that the last one may lack its line end.
class PartialFile
{
public:
    explicit PartialFile(const QString& path);

    [[nodiscard]] QString path() const { return m_path; }

    /// Whether anything exists at the path.
    [[nodiscard]] bool exists() const;

    /// Opens and locks the existing file. Symbolic links are refused. On failure returns false and
    /// sets error().
    bool open();

    [[nodiscard]] bool isOpen() const { return m_file != nullptr; }

    /// Replaces the file by a new one with this content, in one step, and locks it. On failure, for
    /// example because another process uses the old file, returns false and sets error().
    bool replace(const QByteArray& content);

    /// Appends a line. Completes the last line if it has no line end. On failure returns false and
    /// sets error().
    bool append(const QByteArray& line);

    /// Unlocks the file without removing it.
    void close() { m_file.reset(); }

    /// Removes the file, unless another process has replaced it.
    void remove();

    /// What went wrong, as part of a sentence.
    [[nodiscard]] QString error() const { return m_error; }

private:
    bool openAndLock();
    bool refuse(const QString& error);

    QString m_path;
    std::unique_ptr<QFile> m_file;
    QString m_error;
};

} // namespace suite
