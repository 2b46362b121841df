// SPDX-License-Identifier: MIT
#include <common_LockFile.h>

#include <KEST_binfiles.h>
#include <common_ISession.h>
#include <common_ServiceOf.h>
#include <common_UserMessage.h>

common_LockFile::common_LockFile(const QFileInfo& file) : m_file(file)
{}

common_LockFile::~common_LockFile()
{
    if (m_handle != 0) {
        KEST_binfiles_remove_lock(m_file.absoluteFilePath().toStdWString().c_str(), m_handle);
        m_handle = 0;
    }
}

// Only the lock of another owner is a reason to refuse. Where no lock can be made, as in a
// read-only folder, the user must still be able to work.
bool common_LockFile::lock(bool keepHandle)
{
    const int status =
        KEST_binfiles_set_lock_hard(m_file.absoluteFilePath().toStdWString().c_str(), 0, &m_handle);
    if (status != KEST_BINFILES_LOCKED_BY_OTHER_PROCESS &&
        status != KEST_BINFILES_LOCKED_BY_THIS_PROCESS) {
        return true;
    }
    if (!keepHandle) {
        m_handle = 0;
    }
    const common_ActivePtr<common_UserMessage> message = common_UserMessage::create(
        QStringLiteral("The %1 file is locked.").arg(m_file.absoluteFilePath()),
        QStringLiteral("17331"), common_UserMessage::Warning, common_UserMessage::PlainText);
    common_ServiceOf<common_ISession>::getService("common_ISession",
                                                  "src/lockfile/common_LockFile.cpp", __LINE__)
        ->showUserMessage(message, nullptr);
    return false;
}

QFileInfo common_LockFile::fileInfo() const
{
    return m_file;
}
