// SPDX-License-Identifier: MIT
#pragma once

#include <AccessMode.h>
#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <common_ConstantLabeledItem.h>
#include <common_DomainEntity.h>
#include <common_IValidatable.h>
#include <common_LockFile.h>
#include <common_PropertyContainer.h>
#include <common_settings.h>
#include <kest_common_export.h>

#include <QStringList>

#include <initializer_list>

/// The user's options for launching the solver components: properties by name, kept in the group
/// "options" of the user's kest.ini, from which the components' command lines are made.
///
/// kest.ini is in common_IApplicationInfo::userSettingsDirectory(). The names of the properties,
/// their types and defaults are in common_LaunchOptionNames, the members of the enumerated ones in
/// common_LaunchOptionMembers. Values are not checked.
///
/// A writable object holds the lock of kest.ini as long as it exists. Changed values are saved only
/// by writeSettings(). A read-only object can be changed and written, too, and takes no lock: do
/// that only while a common_SettingsLock is held, or changes of others are undone.
class KEST_COMMON_EXPORT common_ComponentsLaunchOptions : public common_PropertyContainer,
                                                          public common_IValidatable,
                                                          public common_settings,
                                                          public common_DomainEntity,
                                                          public common_ConstantLabeledItem
{
public:
    /// Owns the options together with other pointers.
    using Pointer = common_ActivePtr<common_ComponentsLaunchOptions, IntrusivePtrActor>;
    /// The lock of kest.ini; null in a read-only object.
    using LockPointer = common_ActivePtr<common_LockFile, IntrusivePtrActor>;

    /// The text of getClassID().
    static const char* s_classIdString;

    /// Reads the options from the file. Returns null when the mode is ReadWriteAccess and the file
    /// is locked, after a message to the user. Needs the services common_IApplicationInfo and, for
    /// that message, common_ISession. Where no lock can be made, the object is not locked.
    static Pointer create(AccessMode mode);

    /// A new read-only object with the values in the file, without unsaved values of the source.
    static Pointer createClone(Pointer source);

    /// For clone(): the same values and the same lock.
    common_ComponentsLaunchOptions(const common_ComponentsLaunchOptions& other);
    common_ComponentsLaunchOptions& operator=(const common_ComponentsLaunchOptions&) = delete;
    ~common_ComponentsLaunchOptions() override;

    void reference() override { m_refCount.increment(); }
    void dereference() override
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0",
                         "include/common_ComponentsLaunchOptions.h", __LINE__);
        m_refCount.decrement();
    }
    int getRefCount() const override { return m_refCount.value(); }

    /// Names the class in scripts.
    QString getClassID() const;
    /// The name of the options as the user sees it.
    common_Label getLabel() const override;

    /// Sets the values of the installation's default.ini, and the built-in defaults of options that
    /// it lacks. Nothing is written. A script recorder records it.
    void restoreDefaults() override;

    /// Any combination of values is accepted: these return true and do nothing.
    bool validateMembers() override;
    bool validateDomainRules() override;
    void setIgnoreValues() override;

    // The command lines: one element for each process argument, made from the present values, which
    // are not checked. Free text is split at white space; quotes have no meaning.

    /// For prekest.
    QStringList getPrekestOptions() const;

    /// For a sequential runkest.
    QStringList getKestSequentialOptions(bool remoteRun) const;

    /// For a parallel runkest.
    QStringList getKestParallelOptions(bool remoteRun) const;

    /// The words of the remote host; empty ones are kept, so there is always at least one.
    QStringList getKestRemoteOptions() const;

    /// For adaptkest; runkest passes them on.
    QStringList getAdaptkestOptions() const;
    /// For optkest.
    QStringList getOptkestOptions() const;
    /// For amrkest.
    QStringList getAmrkestOptions() const;

    /// Assignments NAME=value for the environment of the solver's process. The user's lines are
    /// included as they were typed.
    QStringList getEnvironmentOptions() const;

    /// Whether parallel runs stay on this machine, so that no authentication is needed.
    bool isLocalOnlySpecified() const;

    /// Whether a remote host is given; text that consists of blanks does not count.
    bool isRemoteHostArgumentSpecified() const;

protected:
    /// For create(). The lock names the file, and must not be null.
    explicit common_ComponentsLaunchOptions(LockPointer lockFile);

    common_ComponentsLaunchOptions* clone() const override;
    /// See getLabel().
    common_Label doGetConstantLabel() const override;

    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    void doMemberwiseCopy(const common_ComponentsLaunchOptions& other);
    void doMemberwiseInitialisation();
    void doConnect();
    void doDispose();

    struct Argument;

    QStringList argumentsOf(std::initializer_list<Argument> arguments) const;
    bool boolean(const char* key) const;
    int integer(const char* key) const;
    QString text(const char* key) const;

    void addCommandOption(QStringList& list, QString text) const;
    void addConditionalCommandOption(QStringList& list, QString text, QString propertyName,
                                     bool expected) const;
    void addKestOptions(QStringList& list) const;
    void addGPUCommandOptions(QStringList& list) const;
    void addPriorityOption(QStringList& list) const;
    void addRemoteMethodOption(QStringList& list, bool remoteRun) const;

    common_AutoCounter m_refCount;
    LockPointer m_pLockFile;
};
