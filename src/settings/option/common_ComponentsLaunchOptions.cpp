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
constexpr int fewestFarmProcesses = 2;

// Before main(): metadata is there before any object is.
const bool optionsAreRegistered = (common_LaunchOptionTable::registerOptions(), true);

QString groupName()
{
    return QStringLiteral("options");
}

// A farm of one is none.
int valueWithFloor(const QString& key, int value)
{
    return key == QLatin1String("Optkest.NumberOfFarmProcesses") ? qMax(value, fewestFarmProcesses)
                                                                 : value;
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
    for (const QString& key : common_LaunchOptionTable::readOrder()) {
        readProperty(settings, key);
    }
}

// A value of the wrong form is what QVariant makes of it, and no range is checked: consistency is
// the business of those who use the values.
void common_ComponentsLaunchOptions::readProperty(QSettings& settings, const QString& key)
{
    const common_LaunchOption& option = common_LaunchOptionTable::option(key);
    common_PropertyReference property = (*this)[key];
    switch (option.type) {
    case common_PropertyMetaData::Boolean:
        property.assignFromBool(settings.value(key, option.defaultValue != 0).toBool());
        break;
    case common_PropertyMetaData::Integer:
        property.assignFromInt(
            valueWithFloor(key, settings.value(key, option.defaultValue).toInt()));
        break;
    default:
        property.assignFromQString(settings.value(key, QString()).toString());
        break;
    }
    property.notify();
}

void common_ComponentsLaunchOptions::doWriteSettings(QSettings& settings)
{
    const common_ComponentsLaunchOptions& self = *this;
    for (const QString& key : common_LaunchOptionTable::writeOrder()) {
        const common_Property property = self[key];
        switch (common_LaunchOptionTable::option(key).type) {
        case common_PropertyMetaData::Boolean:
            settings.setValue(key, property.castToBool());
            break;
        case common_PropertyMetaData::Integer:
            settings.setValue(key, property.castToInt());
            break;
        default:
            settings.setValue(key, property.castToQString());
            break;
        }
    }
}

void common_ComponentsLaunchOptions::doMemberwiseCopy(const common_ComponentsLaunchOptions& other)
{
    m_pLockFile = other.m_pLockFile;
}

// Not in the file, and true whatever an old file says.
void common_ComponentsLaunchOptions::doMemberwiseInitialisation()
{
    common_PropertyReference property =
        (*this)[QStringLiteral("Optkest.SpecifyNumberOfFarmProcesses")];
    property.assignFromBool(true);
    property.notify();
}

void common_ComponentsLaunchOptions::doConnect()
{}

void common_ComponentsLaunchOptions::doDispose()
{}
