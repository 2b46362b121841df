// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QObject>
#include <QStringList>

#include <memory>

class QFileInfo;

/// Finds the machines file: the text file "machines.kest" that names the hosts of parallel runs.
///
/// A line is a host, or host:count with the number of its processes; "#" begins a comment. The file
/// of the user, in KEST_USER_HOME, comes before that of the installation, in KEST_HOME/shared/mpi.
/// KEST_USER_HOME need not be the folder of kest.ini, which a service names: applications should
/// let both be the same. The constructor searches; make a new finder to see a changed file.
class KEST_COMMON_EXPORT common_MachineFileFinder : public QObject
{
    Q_OBJECT

public:
    common_MachineFileFinder();
    ~common_MachineFileFinder() override;

    /// Whether there is a machines file.
    bool isValid() const;

    /// Whether it is the user's own.
    bool isLocalFile() const;

    /// The total number of processes that the file asks for; -1 when it names no host.
    int getProcesses() const;

    /// The file found, or the last one looked for. Owned by the finder.
    QFileInfo* getMachineFileInfo() const;

    /// The file's entries, "host" or "host:count", untrimmed; empty without a file. Also empty when
    /// the file cannot be opened, after a message to the user.
    QStringList parseMachinesFile();

    /// Counts the processes again from the file as it is now.
    void determineProcesses();

    /// Whether the environment variable is set and not empty. If not, shows a message to the user.
    bool checkEnv(QString variableName);

private:
    void search();

    bool m_valid = false;
    bool m_localFile = false;
    int m_processes = -1;
    std::unique_ptr<QFileInfo> m_pFile;
};
