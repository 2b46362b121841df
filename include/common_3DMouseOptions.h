// SPDX-License-Identifier: MIT
#pragma once

#include <AccessMode.h>
#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <common_LockFile.h>
#include <common_PropertyContainer.h>
#include <common_settings.h>
#include <kest_common_export.h>

/// The sensitivity of the 3D mouse in the applications' 3D views: the property
/// "3DMouseSensitivity", kept in the group "3dmouse" of the user's kest.ini.
///
/// kest.ini is in common_IApplicationInfo::userSettingsDirectory(). A writable object holds its
/// lock for its whole life; a read-only object can be written, too, without the lock.
class KEST_COMMON_EXPORT common_3DMouseOptions : public common_PropertyContainer,
                                                 public common_settings
{
public:
    /// Owns the options together with other pointers.
    using Pointer = common_ActivePtr<common_3DMouseOptions, IntrusivePtrActor>;
    /// The lock of kest.ini; null in a read-only object.
    using LockPointer = common_ActivePtr<common_LockFile, IntrusivePtrActor>;

    /// Reads the options from the file. Returns null when the mode is ReadWriteAccess and the file
    /// is locked, after a message to the user. Needs the services common_IApplicationInfo and, for
    /// that message, common_ISession.
    static Pointer create(AccessMode mode);

    /// The same value and the same lock.
    common_3DMouseOptions(const common_3DMouseOptions& other);
    common_3DMouseOptions& operator=(const common_3DMouseOptions& other);
    ~common_3DMouseOptions() override;

    /// A new copy with a reference count of 0. The caller owns it by taking the first reference.
    common_3DMouseOptions* clone() const;

    void reference() override { m_refCount.increment(); }
    void dereference() override
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0",
                         "include/common_3DMouseOptions.h", 18);
        m_refCount.decrement();
    }
    int getRefCount() const override { return m_refCount.value(); }

    /// The sensitivity; 50 at first.
    double getMouseSensitivity() const;

    /// Sets the value of the installation's default.ini, or 50. Nothing is written.
    void restoreDefaults() override;

protected:
    /// For create(). Null makes a read-only object.
    explicit common_3DMouseOptions(LockPointer lockFile);

    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    void doMemberwiseCopy(const common_3DMouseOptions& other);
    void doConnect();

    common_AutoCounter m_refCount;
    LockPointer m_pLockFile;
};
