#pragma once

#include <QString>

#include <cstdint>
#include <string>

/// A machines file without hosts that exists while a run is set up in a job of a scheduler.
///
/// The components then use the hosts of the job, but the library sets up no parallel run without a
/// machines file. Where the user and the installation have none, this one stands in. Of several
/// programs that use the folder only one has its placeholder at a time; the others wait.
class MachinesPlaceholder
{
public:
    /// Writes the user's file into the folder when the program runs in a job and there is no file.
    explicit MachinesPlaceholder(const QString& folder);

    /// Removes the file that was written.
    ~MachinesPlaceholder();

    MachinesPlaceholder(const MachinesPlaceholder&) = delete;
    MachinesPlaceholder& operator=(const MachinesPlaceholder&) = delete;

private:
    bool lock();
    [[nodiscard]] bool isPlaceholder() const;
    void write();

    QString m_file;
    std::wstring m_lockPath;
    uint64_t m_lock = 0; ///< 0: not taken
    bool m_isWritten = false;
};
