// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A folder that one process at a time has, until it ends in any way.
class HeldFolder
{
public:
    enum class Result {
        Held,
        InUse,     ///< another process has it
        Missing,   ///< there is no such folder, or another one by now
        OtherKind, ///< something else has this name
        Failed     ///< see error()
    };

    HeldFolder() = default;
    HeldFolder(const HeldFolder&) = delete;
    HeldFolder& operator=(const HeldFolder&) = delete;
    ~HeldFolder() { release(); }

    /// Makes a folder. Also true when something of that name exists; on failure sets error().
    bool make(const QString& path);

    /// Holds an existing folder; links are not followed. Where the file system has no locks,
    /// several processes can hold it.
    Result hold(const QString& path);

    [[nodiscard]] bool isHeld() const { return m_handle != notOpen; }

    void release();

    /// Removes the folder if it is empty, and releases it.
    void remove();

    /// The system's words for the last failure.
    [[nodiscard]] QString error() const { return m_error; }

private:
    static constexpr qintptr notOpen = -1;

    QString m_path;
    QString m_error;
    qintptr m_handle = notOpen; ///< a descriptor, or the system's handle
};
