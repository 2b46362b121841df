// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// Says, as long as it lives, that this program may be making a copy of the machines file: a hidden
/// file with the program's mark, in the folder of the copies.
///
/// A copy gets the record of its owner only after it was made. If the program is killed in between,
/// the announcement tells when that was.
class CopyAnnouncement
{
public:
    /// An announcement of a program of this host that has ended.
    struct Left
    {
        QString path;
        qint64 time; ///< when it was made, in milliseconds since 1970
    };

    /// Makes the file. If that fails, there is no announcement.
    explicit CopyAnnouncement(const QString& folder);
    CopyAnnouncement(const CopyAnnouncement&) = delete;
    CopyAnnouncement& operator=(const CopyAnnouncement&) = delete;

    /// Removes the file.
    ~CopyAnnouncement();

    /// The announcements that killed programs have left, the earliest first. None while another
    /// program has one, because its copy cannot be told from theirs.
    static QVector<Left> left(const QString& folder);

private:
    QString m_path;
};
