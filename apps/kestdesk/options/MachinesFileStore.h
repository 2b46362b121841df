// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The user's machines file on disk, as of the last reading.
class MachinesFileStore
{
public:
    /// Reads the user's file, or if there is none, the installation's as a starting point. Needs
    /// the service common_IApplicationInfo.
    MachinesFileStore();

    /// The content of a machines file. Nothing if it cannot be read; the problem says why.
    static std::optional<QByteArray> contentOf(const QString& path, QString* problem = nullptr);

    /// The path of the user's file, which may not exist.
    QString fileName() const { return m_fileName; }

    /// Where the content came from: the user's file or the installation's; empty for a template.
    QString origin() const { return m_origin; }

    QByteArray content() const { return m_content; }

    /// Why the user's file could not be read; empty if it could, or does not exist.
    QString readError() const { return m_readError; }

    /// Whether another program has changed, created or removed the user's file since.
    bool hasChanged() const;

    /// Replaces the file's content in one step. Returns why it could not; empty on success.
    QString save(const QByteArray& content);

private:
    QString m_fileName;
    QString m_origin;
    QByteArray m_content;
    QString m_readError;
    std::optional<QByteArray> m_original; ///< nothing where there was no file
};
