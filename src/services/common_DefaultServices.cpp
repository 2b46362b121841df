// SPDX-License-Identifier: MIT
#include <common_DefaultServices.h>

#include "common_DefaultSession.h"
#include "common_ThemeIcons.h"
#include "common_ThemePixmaps.h"

#include <EnvironmentVariable.h>
#include <common_EnvironmentVariablesExt.h>
#include <common_HelpClient.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <utility>

namespace {

class DefaultApplication : public common_IApplication
{
public:
    explicit DefaultApplication(bool nonInteractive) : m_nonInteractive(nonInteractive) {}

    bool isNonInteractive() const override { return m_nonInteractive; }

private:
    bool m_nonInteractive;
};

class DefaultApplicationInfo : public common_IApplicationInfo
{
public:
    explicit DefaultApplicationInfo(QString name) : m_name(std::move(name)) {}

    QString applicationName() const override { return m_name; }
    QString installationDirectory() const override
    {
        return common_DefaultServices::installationDirectory();
    }
    QString userSettingsDirectory() const override
    {
        return common_DefaultServices::userSettingsDirectory();
    }
    QString defaultSettingsDirectory() const override { return installationDirectory(); }
    QString initialRecentFile() const override { return QString(); }

private:
    QString m_name;
};

class DefaultHelpClient : public common_HelpClient
{
public:
    void registerPage(QWidget* /*widget*/, const QString& /*page*/) override {}
};

/// Sets a service of its own unless the application has set one.
template <typename TInterface, typename TService>
class DefaultService
{
public:
    template <typename... Arguments>
    explicit DefaultService(Arguments&&... arguments)
        : m_service(std::forward<Arguments>(arguments)...)
    {
        if (!common_ServiceOf<TInterface>::hasService()) {
            common_ServiceOf<TInterface>::setService(&m_service);
        }
    }
    DefaultService(const DefaultService&) = delete;
    DefaultService& operator=(const DefaultService&) = delete;
    ~DefaultService()
    {
        using Service = common_ServiceOf<TInterface>;
        if (Service::hasService() && GET_SERVICE(TInterface) == &m_service) {
            Service::setService(nullptr);
        }
    }

private:
    TService m_service;
};

// What only applications with windows have.
struct WindowServices
{
    DefaultService<common_IIconUtility, common_ThemeIcons> iconUtility;
    DefaultService<common_IPixmapUtility, common_ThemePixmaps> pixmapUtility;
    DefaultService<common_HelpClient, DefaultHelpClient> helpClient;
};

QString folderOf(const char* variable)
{
    const QString folder = common_EnvironmentVariablesExt::getVariableExpanded(variable);
    return folder.isEmpty() ? folder : QDir(folder).absolutePath();
}

bool hasWindows(common_DefaultServices::Mode mode)
{
    return mode == common_DefaultServices::Windows ||
           (mode == common_DefaultServices::Automatic &&
            qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr);
}

} // namespace

struct common_DefaultServices::Objects
{
    Objects(const QString& name, bool withWindows)
        : application(!withWindows), applicationInfo(name), session(name, withWindows)
    {
        if (withWindows) {
            windowServices = std::make_unique<WindowServices>();
        }
    }

    DefaultService<common_IApplication, DefaultApplication> application;
    DefaultService<common_IApplicationInfo, DefaultApplicationInfo> applicationInfo;
    DefaultService<common_ISession, common_DefaultSession> session;
    std::unique_ptr<WindowServices> windowServices;
};

common_DefaultServices::common_DefaultServices(const QString& applicationName, Mode mode)
    : m_objects(std::make_unique<Objects>(applicationName, hasWindows(mode)))
{}

common_DefaultServices::~common_DefaultServices() = default;

QString common_DefaultServices::installationDirectory()
{
    const QString home = folderOf("KEST_HOME");
    return home.isEmpty()
               ? QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/.."))
               : home;
}

QString common_DefaultServices::userSettingsDirectory()
{
    const QString home = folderOf("KEST_USER_HOME");
    return home.isEmpty()
               ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                     QStringLiteral("/kest")
               : home;
}

void common_DefaultServices::setEnvironment()
{
    const QString installation = installationDirectory();
    const QString userSettings = userSettingsDirectory();
    EnvironmentVariable::set(QStringLiteral("KEST_HOME"), installation);
    EnvironmentVariable::set(QStringLiteral("KEST_USER_HOME"), userSettings);
}
