// SPDX-License-Identifier: MIT
#include <common_ServiceCheck.h>

#include <common_HelpClient.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>
#include <common_ISession.h>
#include <common_ServiceNames.h>
#include <common_ServiceOf.h>

#include <array>

namespace {

using Check = common_ServiceCheck;
using Uses = common_ServiceCheck::Uses;

struct Service
{
    const char* name;
    Uses uses; ///< that need it
    bool (*isSet)();
    const char* purpose;
};

// clang-format off
const std::array<Service, 6>& services()
{
    namespace names = common_ServiceNames;
    static const std::array<Service, 6> table = {{
        // name, uses, whether it is set, what for
        {names::helpClient,      Check::RenderingDialog,                                                                  common_ServiceOf<common_HelpClient>::hasService,       "it shows the help page of a dialog"},
        {names::application,     Check::ProcessDialog | Check::GuiLauncher | Check::RenderingDialog,                      common_ServiceOf<common_IApplication>::hasService,     "it knows whether there is a user to ask"},
        {names::applicationInfo, Check::Settings | Check::RunSetup | Check::ProcessDialog | Check::RenderingDialog,       common_ServiceOf<common_IApplicationInfo>::hasService, "it knows the folders of the installation and of the user's settings"},
        {names::iconUtility,     Check::ProcessDialog,                                                                    common_ServiceOf<common_IIconUtility>::hasService,     "it provides icons"},
        {names::pixmapUtility,   Check::ProcessDialog,                                                                    common_ServiceOf<common_IPixmapUtility>::hasService,   "it provides pictures"},
        {names::session,         Check::Settings | Check::ProcessDialog,                                                  common_ServiceOf<common_ISession>::hasService,         "it shows the message that a settings file is locked"},
    }};
    return table;
}
// clang-format on

template <typename Condition>
QStringList namesOf(Condition condition)
{
    QStringList names;
    for (const Service& service : services()) {
        if (condition(service)) {
            names.append(QLatin1String(service.name));
        }
    }
    return names;
}

bool isMissing(const Service& service, Uses uses)
{
    return (service.uses & uses) && !service.isSet();
}

} // namespace

QStringList common_ServiceCheck::neededServices(Uses uses)
{
    return namesOf([uses](const Service& service) { return bool(service.uses & uses); });
}

QStringList common_ServiceCheck::missingServices(Uses uses)
{
    return namesOf([uses](const Service& service) { return isMissing(service, uses); });
}

QString common_ServiceCheck::problem(Uses uses)
{
    QStringList lines;
    for (const Service& service : services()) {
        if (isMissing(service, uses)) {
            lines.append(QStringLiteral("The service %1 is missing: %2. Set one with "
                                        "common_ServiceOf<%1>::setService(), or use "
                                        "common_DefaultServices.")
                             .arg(QLatin1String(service.name), QLatin1String(service.purpose)));
        }
    }
    return lines.join(QLatin1Char('\n'));
}
