#pragma once

#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <kest_common_export.h>

#include <QFileInfo>

#include <cstdint>

/// The right to write a settings file, which only one object of all processes has at a time.
///
/// Hold it by common_ActivePtr; the lock goes with the last reference, and with the process. The
/// file itself is not touched.
class KEST_COMMON_EXPORT common_LockFile
{
public:
    /// Locks nothing yet.
    explicit common_LockFile(const QFileInfo& file);

    /// A copy shares the lock: each of both removes it when it goes.
    common_LockFile(const common_LockFile& other) = default;
    common_LockFile& operator=(const common_LockFile& other) = default;

    /// Removes the lock if it is held.
    virtual ~common_LockFile();

    /// Takes the lock. When somebody else has it, the user is told, and the answer is false at
    /// once; keepHandle then leaves the handle as the lock functions made it. An owner that was
    /// killed and is just ending is waited for, half a second at most.
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
