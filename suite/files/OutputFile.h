// SPDX-License-Identifier: MIT
#pragma once

#include <QSaveFile>
#include <QString>

namespace suite {

/// Writes a file in one step: the old file is not changed before commit(). If the path is a
/// symbolic link, its target is replaced.
class OutputFile
{
public:
    explicit OutputFile(const QString& path);

    /// Open the new file, append to it, and replace the old file by it. Each returns false on
    /// failure and sets reason().
    bool open();
    bool append(const QByteArray& bytes);
    bool commit();

    /// Does all three.
    bool replace(const QByteArray& content);

    /// Whether nothing has failed so far.
    [[nodiscard]] bool isWhole() const { return m_reason.isEmpty(); }

    [[nodiscard]] QString path() const { return m_file.fileName(); }

    /// Why the last call failed, as part of a sentence: "it is a folder".
    [[nodiscard]] QString reason() const { return m_reason; }

private:
    bool fail(const QString& reason);

    QSaveFile m_file;
    QString m_reason;
};

} // namespace suite
