// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <deque>

struct zip;

/// Writes a zip file. The file appears only with commit(); without it, nothing is left.
class ZipWriter
{
public:
    /// An existing file is replaced; the folder must exist.
    explicit ZipWriter(const QString& path);
    ~ZipWriter();

    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// Adds an entry. Folders in names are separated by "/". On failure returns false and sets
    /// reason().
    bool add(const QString& name, const QByteArray& content);

    /// Adds an entry with the first `bytes` bytes of a file, which commit() reads. On failure
    /// returns false and sets reason().
    bool addFile(const QString& name, const QString& path, qint64 bytes);

    /// Writes the file. On failure returns false and sets reason().
    bool commit();

    /// Why the last call failed, as a clause.
    QString reason() const { return m_reason; }

private:
    bool addSource(const QString& name, struct zip_source* source);
    bool fail(const char* reason);

    struct zip* m_zip = nullptr;
    std::deque<QByteArray> m_contents; ///< the library refers to them until commit()
    QString m_reason;
};
