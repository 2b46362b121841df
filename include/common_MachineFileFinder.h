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
/// Everything is found out in the constructor; make a new finder to see a changed file.
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

    /// How many processes the file asks for in all; -1 when it names no host.
    int getProcesses() const;

    /// The file found, or the last one looked for. The finder's.
    QFileInfo* getMachineFileInfo() const;

    /// The file's entries, "host" or "host:count", untrimmed; empty without a file. A file that
    /// cannot be opened is empty too, and the user is told.
    QStringList parseMachinesFile();

    /// Counts the processes again from the file as it is now.
    void determineProcesses();

    /// Whether the environment variable is set and not empty; otherwise the user is told.
    bool checkEnv(QString variableName);

private:
    void search();

    bool m_valid = false;
    bool m_localFile = false;
    int m_processes = -1;
    std::unique_ptr<QFileInfo> m_pFile;
};
