// SPDX-License-Identifier: MIT
#include "OutputFile.h"

#include "Clause.h"
#include "FileUse.h"
#include "InputFile.h"
#include "WriteAll.h"

namespace suite {

OutputFile::OutputFile(const QString& path) : m_file(path)
{}

bool OutputFile::open()
{
    InputFile old(path());
    if (!old.checkPlace()) {
        return fail(old.reason());
    }
    return m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || fail(m_file.errorString());
}

bool OutputFile::append(const QByteArray& bytes)
{
    return writeAll(m_file, bytes) || fail(m_file.errorString());
}

bool OutputFile::commit()
{
    FileUse::waitForEnd(path());
    return m_file.commit() || fail(m_file.errorString());
}

bool OutputFile::replace(const QByteArray& content)
{
    return open() && append(content) && commit();
}

bool OutputFile::fail(const QString& reason)
{
    m_reason = clause(reason);
    return false;
}

} // namespace suite
