// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string>

/// A machines file without hosts that exists while a run is set up in a scheduler job.
///
/// The components then use the hosts of the job, but the library does not set up a parallel run
/// without a machines file. If neither the user nor the installation has one, the placeholder takes
/// its place. Only one program at a time has a placeholder in a folder; the others wait.
class MachinesPlaceholder
{
public:
    /// Writes the user's machines file into the folder if the program runs in a job and has no
    /// machines file.
    explicit MachinesPlaceholder(const QString& folder);

    /// Removes the file if the constructor has written it.
    ~MachinesPlaceholder();

    MachinesPlaceholder(const MachinesPlaceholder&) = delete;
    MachinesPlaceholder& operator=(const MachinesPlaceholder&) = delete;

private:
    bool lock();
    [[nodiscard]] bool isOfUser() const;
    [[nodiscard]] QByteArray startOfFile() const;
    void write();

    QString m_file;
    std::wstring m_lockPath;
    uint64_t m_lock = 0; ///< 0: not taken
    bool m_isWritten = false;
};
