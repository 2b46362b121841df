#pragma once

#include <AccessMode.h>
#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <common_LockFile.h>
#include <common_PropertyContainer.h>
#include <common_settings.h>
#include <kest_common_export.h>

/// How sensitive the 3D mouse is in the applications' 3D views: the property "3DMouseSensitivity",
/// kept in the group "3dmouse" of the user's kest.ini.
///
/// A writable object holds the lock of kest.ini for its whole life.
class KEST_COMMON_EXPORT common_3DMouseOptions : public common_PropertyContainer,
                                                 public common_settings
{
public:
    using Pointer = common_ActivePtr<common_3DMouseOptions, IntrusivePtrActor>;
    using LockPointer = common_ActivePtr<common_LockFile, IntrusivePtrActor>;

    /// The options as they are in the file. Null when they are to be written and the file is
    /// locked, of which the user has been told. Needs the services common_IApplicationInfo and, for
    /// that message, common_ISession.
    static Pointer create(AccessMode mode);

    /// The same value and the same lock.
    common_3DMouseOptions(const common_3DMouseOptions& other);
    common_3DMouseOptions& operator=(const common_3DMouseOptions& other);
    ~common_3DMouseOptions() override;

    /// A copy, for the caller to take the first reference on.
    common_3DMouseOptions* clone() const;

    void reference() override { m_refCount.increment(); }
    void dereference() override
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0",
                         "include/common_3DMouseOptions.h", 18);
        m_refCount.decrement();
    }
    int getRefCount() const override { return m_refCount.value(); }

    double getMouseSensitivity() const;

    /// Takes the value of the installation's default.ini, or 50. Nothing is written.
    void restoreDefaults() override;

protected:
    explicit common_3DMouseOptions(LockPointer lockFile);

    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    void doMemberwiseCopy(const common_3DMouseOptions& other);
    void doConnect();

    common_AutoCounter m_refCount;
    LockPointer m_pLockFile;
};
