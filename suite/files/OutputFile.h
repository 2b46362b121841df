#pragma once

#include <QSaveFile>
#include <QString>

namespace suite {

/// Writes a file in one step: until commit() the old file stays as it is, and without it nothing
/// changes. Where the path is a symbolic link, the file that it leads to is replaced.
class OutputFile
{
public:
    explicit OutputFile(const QString& path);

    /// Opens, appends, and puts the new file in place of the old one. Each is false when it cannot
    /// be done.
    bool open();
    bool append(const QByteArray& bytes);
    bool commit();

    /// The three together.
    bool replace(const QByteArray& content);

    /// Whether nothing has failed so far.
    [[nodiscard]] bool isWhole() const { return m_reason.isEmpty(); }

    [[nodiscard]] QString path() const { return m_file.fileName(); }

    /// Why the last call has failed, as part of a sentence: "it is a folder".
    [[nodiscard]] QString reason() const { return m_reason; }

private:
    bool fail(const QString& reason);

    QSaveFile m_file;
    QString m_reason;
};

} // namespace suite
