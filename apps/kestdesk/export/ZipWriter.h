#pragma once

#include <QByteArray>
#include <QString>

#include <deque>

struct zip;

/// Writes a zip file. Nothing is there before commit(), and nothing else stays without it.
class ZipWriter
{
public:
    /// The path must not exist, or be a file that may be replaced; its folder must exist.
    explicit ZipWriter(const QString& path);
    ~ZipWriter();

    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// Adds an entry with that content. The names have "/" between folders.
    bool add(const QString& name, const QByteArray& content);

    /// Adds an entry with the first bytes of a file, which are read by commit().
    bool addFile(const QString& name, const QString& path, qint64 bytes);

    /// Writes the file.
    bool commit();

    /// Why the last call has failed, as a clause.
    QString reason() const { return m_reason; }

private:
    bool addSource(const QString& name, struct zip_source* source);
    bool fail(const char* reason);

    struct zip* m_zip = nullptr;
    std::deque<QByteArray> m_contents; ///< must stay where they are until the end
    QString m_reason;
};
