#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The user's machines file on the disk, as it was when it was read.
class MachinesFileStore
{
public:
    /// Reads the user's file; where the user has none, the installation's to begin with. Needs the
    /// service common_IApplicationInfo.
    MachinesFileStore();

    /// What a machines file holds. Nothing when it cannot be read; the problem says why.
    static std::optional<QByteArray> contentOf(const QString& path, QString* problem = nullptr);

    /// Of the user's file, which need not be there.
    QString fileName() const { return m_fileName; }

    /// Where the content came from: the user's file or the installation's; empty for a template.
    QString origin() const { return m_origin; }

    QByteArray content() const { return m_content; }

    /// Why the user's file could not be read; empty when all is well.
    QString readError() const { return m_readError; }

    /// Whether the user's file was changed, made or removed by another program since.
    bool hasChanged() const;

    /// Puts the content in the file's place, in one step. Why it could not; empty when it is done.
    QString save(const QByteArray& content);

private:
    QString m_fileName;
    QString m_origin;
    QByteArray m_content;
    QString m_readError;
    std::optional<QByteArray> m_original; ///< nothing where there was no file
};
