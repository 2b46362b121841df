// SPDX-License-Identifier: MIT
#include "ZipWriter.h"

#include <NameBytes.h>

#include <zip.h>

ZipWriter::ZipWriter(const QString& path)
{
    int code = 0;
    m_zip = zip_open(NameBytes::of(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (m_zip == nullptr) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        fail(zip_error_strerror(&error));
        zip_error_fini(&error);
    }
}

ZipWriter::~ZipWriter()
{
    if (m_zip != nullptr) {
        zip_discard(m_zip);
    }
}

bool ZipWriter::add(const QString& name, const QByteArray& content)
{
    if (m_zip == nullptr) {
        return false;
    }
    m_contents.push_back(content);
    const QByteArray& kept = m_contents.back();
    return addSource(name, zip_source_buffer(m_zip, kept.constData(),
                                             static_cast<zip_uint64_t>(kept.size()), 0));
}

bool ZipWriter::addFile(const QString& name, const QString& path, qint64 bytes)
{
    return m_zip != nullptr &&
           addSource(name, zip_source_file(m_zip, NameBytes::of(path).constData(), 0, bytes));
}

bool ZipWriter::addSource(const QString& name, struct zip_source* source)
{
    if (source == nullptr) {
        return fail(zip_strerror(m_zip));
    }
    if (zip_file_add(m_zip, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8) < 0) {
        const QByteArray reason = zip_strerror(m_zip);
        zip_source_free(source);
        return fail(reason.constData());
    }
    return true;
}

bool ZipWriter::commit()
{
    if (m_zip == nullptr) {
        return false;
    }
    if (zip_close(m_zip) != 0) {
        return fail(zip_strerror(m_zip));
    }
    m_zip = nullptr;
    return true;
}

bool ZipWriter::fail(const char* reason)
{
    m_reason = QString::fromLocal8Bit(reason);
    return false;
}
