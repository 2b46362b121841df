// SPDX-License-Identifier: MIT
#pragma once

#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <kest_common_export.h>

#include <QFileInfo>

#include <cstdint>

/// The right to write a settings file, which at most one object in all processes has at a time.
///
/// Reading settings, changing and writing them back needs the lock around all three.
/// common_SettingsLock takes the same lock in a scope, without messages, and can wait.
///
/// Hold it by common_ActivePtr. The lock is released with the last reference, or when the process
/// ends in whatever way. The file itself is not changed.
class KEST_COMMON_EXPORT common_LockFile
{
public:
    /// Does not lock yet; see lock().
    explicit common_LockFile(const QFileInfo& file);

    /// A copy shares the lock: whichever of the two is destroyed first removes it.
    common_LockFile(const common_LockFile& other) = default;
    common_LockFile& operator=(const common_LockFile& other) = default;

    /// Removes the lock if it is held.
    virtual ~common_LockFile();

    /// Takes the lock. When another object has it, shows a message to the user, at each call, and
    /// returns false; keepHandle then leaves the handle as the lock functions set it. Needs the
    /// service common_ISession for that message. Waits at most half a second, and only for an owner
    /// that was killed and has not ended yet.
    ///
    /// Also returns true where no lock can be made, as in a read-only folder: the user must be able
    /// to work there, but nothing keeps others out.
    bool lock(bool keepHandle);

    /// The file that is locked.
    QFileInfo fileInfo() const;

    void reference() { m_refCount.increment(); }
    void dereference()
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0", "include/common_LockFile.h", 17);
        m_refCount.decrement();
    }
    int getRefCount() const { return m_refCount.value(); }

private:
    common_AutoCounter m_refCount;
    QFileInfo m_file;
    uint64_t m_handle = 0;
};
