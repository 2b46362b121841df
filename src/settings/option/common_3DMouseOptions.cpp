// SPDX-License-Identifier: MIT
#include <common_3DMouseOptions.h>

#include "common_DefaultSettings.h"
#include "common_SettingsFile.h"
#include "common_UserSettingsFile.h"

#include <common_PropertyFactory.h>

#include <utility>

namespace {

constexpr const char* sourceFile = "src/settings/option/common_3DMouseOptions.cpp";
constexpr double defaultSensitivity = 50;

QString sensitivityKey()
{
    return QStringLiteral("3DMouseSensitivity");
}

QString groupName()
{
    return QStringLiteral("3dmouse");
}

bool registerSensitivity()
{
    common_PropertyFactory::addMetaData(
        sensitivityKey(),
        common_PropertyMetaData(sensitivityKey(), QString(), common_PropertyMetaData::Double,
                                common_PropertyMetaData::Single,
                                common_PropertyMetaData::Persistent |
                                    common_PropertyMetaData::Assigned));
    return true;
}

// Before main(): metadata is there before any object is.
const bool sensitivityIsRegistered = registerSensitivity();

} // namespace

common_3DMouseOptions::Pointer common_3DMouseOptions::create(AccessMode mode)
{
    const LockPointer lockFile = common_lockedUserSettings(mode, sourceFile, __LINE__);
    return lockFile ? Pointer(new common_3DMouseOptions(lockFile)) : Pointer();
}

common_3DMouseOptions::common_3DMouseOptions(LockPointer lockFile)
    : common_settings(lockFile->fileInfo().absoluteFilePath(), groupName(), QSettings::IniFormat)
    , m_pLockFile(std::move(lockFile))
{
    readSettings(); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): this class's own hook
    doConnect();
}

common_3DMouseOptions::common_3DMouseOptions(const common_3DMouseOptions& other)
    : common_PropertyContainer(other), common_settings(other)
{
    doMemberwiseCopy(other);
}

// The count is never copied: it belongs to the pointers to this object.
common_3DMouseOptions& common_3DMouseOptions::operator=(const common_3DMouseOptions& other)
{
    common_PropertyContainer::operator=(other);
    common_settings::operator=(other);
    doMemberwiseCopy(other);
    return *this;
}

common_3DMouseOptions::~common_3DMouseOptions() = default;

common_3DMouseOptions* common_3DMouseOptions::clone() const
{
    return new common_3DMouseOptions(*this);
}

double common_3DMouseOptions::getMouseSensitivity() const
{
    return (*this)[sensitivityKey()].castToDouble();
}

void common_3DMouseOptions::restoreDefaults()
{
    const QString defaults = common_defaultSettingsFile(sourceFile, __LINE__);
    common_SettingsFile(defaults, QSettings::IniFormat)
        .read(
            groupName(), [this](QSettings& settings) { doReadSettings(settings); },
            common_SettingsFile::Damage::Ignore);
}

void common_3DMouseOptions::doReadSettings(QSettings& settings)
{
    common_PropertyReference property = (*this)[sensitivityKey()];
    property.assignFromDouble(settings.value(sensitivityKey(), defaultSensitivity).toDouble());
    property.notify();
}

void common_3DMouseOptions::doWriteSettings(QSettings& settings)
{
    settings.setValue(sensitivityKey(), getMouseSensitivity());
}

void common_3DMouseOptions::doMemberwiseCopy(const common_3DMouseOptions& other)
{
    m_pLockFile = other.m_pLockFile;
}

void common_3DMouseOptions::doConnect()
{}
