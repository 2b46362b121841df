#include "Services.h"

#include "Application.h"
#include "ApplicationInfo.h"
#include "ScriptRecorder.h"
#include "Session.h"

#include <common_ServiceOf.h>

struct Services::Objects
{
    explicit Objects(bool nonInteractive) : application(nonInteractive), session(nonInteractive) {}

    Application application;
    ApplicationInfo applicationInfo;
    Session session;
    ScriptRecorder scriptRecorder;
};

Services::Services(bool nonInteractive) : m_objects(std::make_unique<Objects>(nonInteractive))
{
    common_ServiceOf<common_IApplication>::setService(&m_objects->application);
    common_ServiceOf<common_IApplicationInfo>::setService(&m_objects->applicationInfo);
    common_ServiceOf<common_ISession>::setService(&m_objects->session);
    if (m_objects->scriptRecorder.isRecording()) {
        common_ServiceOf<common_IScriptRecorder>::setService(&m_objects->scriptRecorder);
    }
}

Services::~Services()
{
    common_ServiceOf<common_IScriptRecorder>::setService(nullptr);
    common_ServiceOf<common_ISession>::setService(nullptr);
    common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
    common_ServiceOf<common_IApplication>::setService(nullptr);
}
