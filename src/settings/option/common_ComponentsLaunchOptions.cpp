// SPDX-License-Identifier: MIT
#include <common_ComponentsLaunchOptions.h>

#include "common_DefaultSettings.h"
#include "common_LaunchOptionTable.h"
#include "common_SettingsFile.h"
#include "common_UserSettingsFile.h"

#include <common_IScriptRecorder.h>
#include <common_ServiceOf.h>

#include <utility>

namespace {

constexpr const char* sourceFile = "src/settings/option/common_ComponentsLaunchOptions.cpp";

// Before main(): metadata is there before any object is.
const bool optionsAreRegistered = (common_LaunchOptionTable::registerOptions(), true);

QString groupName()
{
    return QStringLiteral("options");
}

// The property's value in the type that the settings file keeps it in.
QVariant valueOf(const common_Property& property, common_PropertyMetaData::Type type)
{
    switch (type) {
    case common_PropertyMetaData::Boolean:
        return property.castToBool();
    case common_PropertyMetaData::Integer:
        return property.castToInt();
    default:
        return property.castToQString();
    }
}

QVariant defaultOf(const common_LaunchOption& option)
{
    switch (option.type) {
    case common_PropertyMetaData::Boolean:
        return option.defaultValue != 0;
    case common_PropertyMetaData::Integer:
        return option.defaultValue;
    default:
        return QString();
    }
}

// A value of the wrong form becomes what QVariant makes of it.
void assign(common_PropertyReference property, const common_LaunchOption& option,
            const QVariant& value)
{
    switch (option.type) {
    case common_PropertyMetaData::Boolean:
        property.assignFromBool(value.toBool());
        break;
    case common_PropertyMetaData::Integer:
        property.assignFromInt(qMax(value.toInt(), option.smallest));
        break;
    default:
        property.assignFromQString(value.toString());
        break;
    }
    property.notify();
}

} // namespace

const char* common_ComponentsLaunchOptions::s_classIdString = "ComponentLaunchOptions";

common_ComponentsLaunchOptions::Pointer common_ComponentsLaunchOptions::create(AccessMode mode)
{
    const LockPointer lockFile = common_lockedUserSettings(mode, sourceFile, __LINE__);
    return lockFile ? Pointer(new common_ComponentsLaunchOptions(lockFile)) : Pointer();
}

common_ComponentsLaunchOptions::Pointer
// NOLINTNEXTLINE(performance-unnecessary-value-param): the exported signature is kept
common_ComponentsLaunchOptions::createClone(Pointer /*source*/)
{
    return create(ReadOnlyAccess);
}

common_ComponentsLaunchOptions::common_ComponentsLaunchOptions(LockPointer lockFile)
    : common_settings(lockFile->fileInfo().absoluteFilePath(), groupName(), QSettings::IniFormat)
    , m_pLockFile(std::move(lockFile))
{
    readSettings(); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): this class's own hook
    doMemberwiseInitialisation();
}

common_ComponentsLaunchOptions::common_ComponentsLaunchOptions(
    const common_ComponentsLaunchOptions& other)
    : common_PropertyContainer(other)
    , common_IValidatable(other)
    , common_settings(other)
    , common_DomainEntity(other)
    , common_ConstantLabeledItem(other)
{
    doMemberwiseCopy(other);
}

common_ComponentsLaunchOptions::~common_ComponentsLaunchOptions()
{
    doDispose();
}

common_ComponentsLaunchOptions* common_ComponentsLaunchOptions::clone() const
{
    return new common_ComponentsLaunchOptions(*this);
}

QString common_ComponentsLaunchOptions::getClassID() const
{
    return QString::fromLatin1(s_classIdString);
}

common_Label common_ComponentsLaunchOptions::getLabel() const
{
    return common_Label(QStringLiteral("ComponentLaunchOptions"));
}

common_Label common_ComponentsLaunchOptions::doGetConstantLabel() const
{
    return common_Label(QString::fromLatin1(s_classIdString));
}

void common_ComponentsLaunchOptions::restoreDefaults()
{
    const QString defaults = common_defaultSettingsFile(sourceFile, __LINE__);
    common_SettingsFile(defaults, QSettings::IniFormat)
        .read(
            groupName(), [this](QSettings& settings) { doReadSettings(settings); },
            common_SettingsFile::Damage::Ignore);
    if (common_ServiceOf<common_IScriptRecorder>::hasService()) {
        GET_SERVICE(common_IScriptRecorder)
            ->recordCommand(common_ActivePtr<common_DomainEntity>(this),
                            QStringLiteral(":RestoreDefaults()"));
    }
}

bool common_ComponentsLaunchOptions::validateMembers()
{
    return true;
}

bool common_ComponentsLaunchOptions::validateDomainRules()
{
    return true;
}

void common_ComponentsLaunchOptions::setIgnoreValues()
{}

void common_ComponentsLaunchOptions::doReadSettings(QSettings& settings)
{
    for (const common_LaunchOption* option : common_LaunchOptionTable::readOrder()) {
        const QString key = QLatin1String(option->key);
        assign((*this)[key], *option, settings.value(key, defaultOf(*option)));
    }
}

void common_ComponentsLaunchOptions::doWriteSettings(QSettings& settings)
{
    const common_ComponentsLaunchOptions& self = *this;
    for (const common_LaunchOption* option : common_LaunchOptionTable::writeOrder()) {
        const QString key = QLatin1String(option->key);
        settings.setValue(key, valueOf(self[key], option->type));
    }
}

void common_ComponentsLaunchOptions::doMemberwiseCopy(const common_ComponentsLaunchOptions& other)
{
    m_pLockFile = other.m_pLockFile;
}

// Options that no file keeps have their default in every new object, whatever an old file says.
void common_ComponentsLaunchOptions::doMemberwiseInitialisation()
{
    constexpr int fixed = common_PropertyMetaData::Transient | common_PropertyMetaData::Assigned;
    for (const common_LaunchOption& option : common_LaunchOptionTable::options()) {
        if (option.flags == fixed) {
            assign((*this)[QLatin1String(option.key)], option, defaultOf(option));
        }
    }
}

void common_ComponentsLaunchOptions::doConnect()
{}

void common_ComponentsLaunchOptions::doDispose()
{}
