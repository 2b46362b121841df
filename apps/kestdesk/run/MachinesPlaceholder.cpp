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

// The file found in the user's folder may be the placeholder of another program, which removes it
// the next moment: only the owner of the lock looks which files there are.
MachinesPlaceholder::MachinesPlaceholder(const QString& folder)
    : m_file(QDir(folder).filePath(QStringLiteral("machines.kest")))
    , m_lockPath(m_file.toStdWString())
{
    if (suite::SlurmJob().isThere() && !isOfUser() && lock()) {
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
    for (;;) {
        const int status = KEST_binfiles_set_lock_hard(m_lockPath.c_str(), 0, &m_lock);
        if (status == KEST_BINFILES_LOCK_TAKEN) {
            return true;
        }
        m_lock = 0;
        if (status == KEST_BINFILES_LOCK_NOT_MADE || deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pause);
    }
}

// A placeholder is empty for a moment while it is written.
bool MachinesPlaceholder::isOfUser() const
{
    const QByteArray start = startOfFile();
    return !start.isEmpty() && start != content;
}

// Empty without a regular file.
QByteArray MachinesPlaceholder::startOfFile() const
{
    const QFileInfo info(m_file);
    QFile file(m_file);
    return info.isFile() && file.open(QIODevice::ReadOnly) ? file.read(content.size() + 1)
                                                           : QByteArray();
}

// A file that has appeared in the meantime belongs to the user; a placeholder that a killed program
// has left is used and then removed.
void MachinesPlaceholder::write()
{
    QFile file(m_file);
    m_isWritten = !QFileInfo(m_file).isSymLink() && startOfFile() == content;
    if (!common_MachineFileFinder().isValid() &&
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        m_isWritten = true;
        file.write(content);
    }
}
