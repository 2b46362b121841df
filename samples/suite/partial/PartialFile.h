#pragma once

#include <QFile>
#include <QString>

#include <memory>

namespace suite {

/// A file of lines that one process at a time adds to. Each addition is one write, so that a killed
/// process leaves whole lines, or one at the end without its line end.
class PartialFile
{
public:
    explicit PartialFile(const QString& path);

    [[nodiscard]] QString path() const { return m_path; }

    /// Whether anything has this name.
    [[nodiscard]] bool exists() const;

    /// Opens and locks the file that is there. Symbolic links are refused.
    bool open();

    [[nodiscard]] bool isOpen() const { return m_file != nullptr; }

    /// Puts a new file with this content in place of the old one, in one step, and locks it. False
    /// when another process uses the old one.
    bool replace(const QByteArray& content);

    /// Adds a line, behind a line end where the last line has none.
    bool append(const QByteArray& line);

    /// Unlocks the file, which stays.
    void close() { m_file.reset(); }

    /// Removes the file, unless another process has replaced it.
    void remove();

    /// What went wrong, as part of a sentence.
    [[nodiscard]] QString error() const { return m_error; }

private:
    bool openAndLock();
    [[nodiscard]] bool isStillThere() const;
    bool refuse(const QString& error);

    QString m_path;
    std::unique_ptr<QFile> m_file;
    QString m_error;
};

} // namespace suite
