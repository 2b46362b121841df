// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace suite {

/// A new folder among the user's temporary files. It is removed with its content when this object
/// is destroyed.
class TemporaryFolder
{
public:
    /// The name is the first part of the folder's own.
    explicit TemporaryFolder(const QString& name);

    bool isValid() const { return m_error.isEmpty(); }

    /// Why there is no folder, as a sentence with its place and how to choose another; empty if
    /// there is one.
    QString error() const { return m_error; }

    /// Absolute path; empty if there is no folder.
    QString path() const;
    QString filePath(const QString& name) const;

    /// Removes it now.
    void remove() { m_folder.reset(); }

    /// Absolute path of the folder for temporary files, from TMPDIR. It need not exist: for a
    /// missing folder QDir::tempPath() returns "", which leads to the root folder.
    static QString place();

    /// A sentence that reports a place that is not a folder, for which Qt would use the root
    /// folder; empty if it is one.
    static QString placeProblem();

    /// Tests whether more can be written into a temporary folder. Returns a sentence that reports
    /// its place if not; else empty.
    static QString writeProblem(const QString& folder);

    /// Writes a file into a temporary folder. Returns a sentence that reports the place on failure;
    /// else empty.
    static QString writeFile(const QString& path, const QByteArray& content);

private:
    static QString unusable(const QString& reason);

    std::optional<QTemporaryDir> m_folder;
    QString m_error;
};

} // namespace suite
