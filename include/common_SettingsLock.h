// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QString>

#include <chrono>
#include <cstdint>

class common_settings;

/// Holds the lock of a settings file in a scope, without showing messages.
///
/// Reading settings, changing and writing them back needs the lock around all three, or a change
/// that another process makes in between is undone:
///
///     const auto options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
///     common_SettingsLock lock(*options);
///     if (!lock.tryLock(std::chrono::seconds(5))) {
///         return fail(lock.problem());
///     }
///     options->readSettings(); // another process may have written meanwhile
///     (*options)[QLatin1String(common_LaunchOptionNames::runParallel)].assignFromBool(true);
///     const QString reason = options->tryWriteSettings();
///
/// It is the lock that common_LockFile takes. So open the settings object for reading only: a
/// writable one takes the lock itself, and is refused while this object holds it.
class KEST_COMMON_EXPORT common_SettingsLock
{
public:
    /// Why the lock was not taken.
    enum Failure {
        NoFailure,     ///< it was taken, or not tried yet
        HeldByOther,   ///< another process holds it
        HeldByThis,    ///< another object of this process holds it
        CannotMakeLock ///< no permission, no such folder, or a full disk
    };

    /// For the file of the settings object. Does not lock yet, and does not keep the object.
    explicit common_SettingsLock(const common_settings& settings);

    /// For the file; it need not exist.
    explicit common_SettingsLock(const QString& fileName);

    common_SettingsLock(const common_SettingsLock&) = delete;
    common_SettingsLock& operator=(const common_SettingsLock&) = delete;

    /// Removes the lock if it is held.
    ~common_SettingsLock();

    /// Takes the lock; true at once if this object holds it already. Without a timeout tries once;
    /// else waits that long for another process, and blocks the calling thread. In an application
    /// with windows, try once and again later by a timer. Even one try may take half a second, when
    /// the owner was just killed.
    ///
    /// Unlike common_LockFile::lock(), fails where no lock can be made.
    bool tryLock(std::chrono::milliseconds timeout = std::chrono::milliseconds(0));

    /// Removes the lock; does nothing if it is not held.
    void unlock();

    /// Whether this object holds the lock.
    bool isLocked() const;

    /// Why the last tryLock() failed.
    Failure failure() const;

    /// The same as a sentence without its end, for the user; it names the file, and the owner if
    /// there is one. Empty if there was no failure.
    QString problem() const;

    /// The program, process and host that hold the lock now, such as "cadkest as process 4711 on
    /// atlas". Empty if there is no owner, or it is not known.
    QString owner() const;

private:
    Failure tryOnce();

    QString m_fileName;
    std::uint64_t m_handle = 0;
    Failure m_failure = NoFailure;
    QString m_problem;
};
