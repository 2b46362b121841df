// SPDX-License-Identifier: MIT
#include "MachinesPlaceholder.h"

#include <KEST_binfiles.h>
#include <SlurmJob.h>

#include <common_MachineFileFinder.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace {

constexpr int longestWait = 10000;  // milliseconds; a set-up takes a few, on a busy machine more
constexpr unsigned long pause = 10; // milliseconds
const QByteArray content = QByteArrayLiteral("# Made by kestdesk while it set up a run in a Slurm "
                                             "job. It names no host and may be deleted.\n");

} // namespace

MachinesPlaceholder::MachinesPlaceholder(const QString& folder)
    : m_file(QDir(folder).filePath(QStringLiteral("machines.kest")))
    , m_lockPath(m_file.toStdWString())
{
    const bool isMissing = !common_MachineFileFinder().isValid();
    if (suite::SlurmJob().isThere() && (isMissing || isPlaceholder()) && lock()) {
        write();
    }
}

// The file is removed first: the next owner of the lock must not find it.
MachinesPlaceholder::~MachinesPlaceholder()
{
    if (m_isWritten) {
        QFile::remove(m_file);
    }
    if (m_lock != 0) {
        KEST_binfiles_remove_lock(m_lockPath.c_str(), m_lock);
    }
}

bool MachinesPlaceholder::lock()
{
    const QDeadlineTimer deadline(longestWait);
    while (KEST_binfiles_set_lock_hard(m_lockPath.c_str(), 0, &m_lock) !=
           KEST_BINFILES_LOCK_TAKEN) {
        m_lock = 0;
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pause);
    }
    return true;
}

// The placeholder of another program, or one that a killed program has left.
bool MachinesPlaceholder::isPlaceholder() const
{
    const QFileInfo info(m_file);
    QFile file(m_file);
    return info.isFile() && !info.isSymLink() && info.size() == content.size() &&
           file.open(QIODevice::ReadOnly) && file.readAll() == content;
}

// A file that has appeared in the meantime belongs to the user; a placeholder that was left is used
// and then removed.
void MachinesPlaceholder::write()
{
    QFile file(m_file);
    m_isWritten = isPlaceholder();
    if (!common_MachineFileFinder().isValid() &&
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        m_isWritten = true;
        file.write(content);
    }
}
