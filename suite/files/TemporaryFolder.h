#pragma once

#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace suite {

/// A new folder among the user's temporary files. It is removed with all that is in it when this
/// object is destroyed.
class TemporaryFolder
{
public:
    /// The name is the first part of the folder's own.
    explicit TemporaryFolder(const QString& name);

    bool isValid() const { return m_error.isEmpty(); }

    /// Why there is no folder, with the name of the place and how to choose another.
    QString error() const { return m_error; }

    /// Absolute; empty when there is none.
    QString path() const;
    QString filePath(const QString& name) const;

    /// Removes it now.
    void remove() { m_folder.reset(); }

    /// Where temporary files go: the folder that TMPDIR names, absolute, as it is named. It need
    /// not exist: QDir::tempPath() would give "" then, and so the root folder.
    static QString place();

    /// The sentence that reports the place when it is no folder at all, or else empty. Then Qt
    /// takes the root folder in its place.
    static QString placeProblem();

    /// Whether more can be written into such a folder: the sentence that reports its place when
    /// not, or else empty.
    static QString writeProblem(const QString& folder);

    /// Writes a file into such a folder: the sentence that reports the place when it cannot be
    /// written, or else empty.
    static QString writeFile(const QString& path, const QByteArray& content);

private:
    static QString unusable(const QString& reason);

    std::optional<QTemporaryDir> m_folder;
    QString m_error;
};

} // namespace suite
