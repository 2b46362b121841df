// SPDX-License-Identifier: MIT
#pragma once

#include <KEST_binfiles.h>

#include <QString>

#include <cstdint>
#include <string>

/// Excludes other writers of a settings file as long as it exists. First waits for them, for less
/// than a second.
class common_WriteGuard
{
public:
    /// The real path of the settings file.
    explicit common_WriteGuard(const QString& file);
    common_WriteGuard(const common_WriteGuard&) = delete;
    common_WriteGuard& operator=(const common_WriteGuard&) = delete;
    ~common_WriteGuard();

    /// Why other writers could not be excluded; empty on success.
    QString failure() const;

private:
    bool tryLock();

    const QString m_file;
    const std::wstring m_path;
    uint64_t m_handle = 0;
    int m_status = KEST_BINFILES_LOCK_NOT_MADE;
};
