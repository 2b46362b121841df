// SPDX-License-Identifier: MIT
#include "Services.h"

#include "Application.h"
#include "ApplicationIdentity.h"
#include "ApplicationInfo.h"
#include "HelpClient.h"
#include "IconUtility.h"
#include "Installation.h"
#include "PixmapUtility.h"
#include "ScriptRecorder.h"
#include "Session.h"

#include <common_ServiceOf.h>

#include <QApplication>

namespace {

// What only programs with windows have.
struct WindowObjects
{
    IconUtility iconUtility;
    PixmapUtility pixmapUtility;
    HelpClient helpClient{Installation::helpDirectory()};
};

} // namespace

struct Services::Objects
{
    Objects(const ApplicationIdentity& identity, bool nonInteractive)
        : application(nonInteractive)
        , applicationInfo(identity)
        , session(identity.name, nonInteractive)
        , scriptRecorder(identity.name)
    {}

    Application application;
    ApplicationInfo applicationInfo;
    Session session;
    ScriptRecorder scriptRecorder;
    std::unique_ptr<WindowObjects> windowObjects;
};

Services::Services(const ApplicationIdentity& identity, bool nonInteractive)
    : m_objects(std::make_unique<Objects>(identity, nonInteractive))
{
    common_ServiceOf<common_IApplication>::setService(&m_objects->application);
    common_ServiceOf<common_IApplicationInfo>::setService(&m_objects->applicationInfo);
    common_ServiceOf<common_ISession>::setService(&m_objects->session);
    if (m_objects->scriptRecorder.isRecording()) {
        common_ServiceOf<common_IScriptRecorder>::setService(&m_objects->scriptRecorder);
    }
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) {
        m_objects->windowObjects = std::make_unique<WindowObjects>();
        common_ServiceOf<common_IIconUtility>::setService(&m_objects->windowObjects->iconUtility);
        common_ServiceOf<common_IPixmapUtility>::setService(
            &m_objects->windowObjects->pixmapUtility);
        common_ServiceOf<common_HelpClient>::setService(&m_objects->windowObjects->helpClient);
    }
}

Services::~Services()
{
    common_ServiceOf<common_HelpClient>::setService(nullptr);
    common_ServiceOf<common_IPixmapUtility>::setService(nullptr);
    common_ServiceOf<common_IIconUtility>::setService(nullptr);
    common_ServiceOf<common_IScriptRecorder>::setService(nullptr);
    common_ServiceOf<common_ISession>::setService(nullptr);
    common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
    common_ServiceOf<common_IApplication>::setService(nullptr);
}
