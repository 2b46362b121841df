#pragma once

#include "ApplicationTask.h"
#include "WindowSystem.h"

#include <QStringList>

struct ApplicationDescription;

/// What the words of a command line ask an application for.
struct ApplicationRequest
{
    WindowSystem windowSystem = WindowSystem::None;
    bool isStandalone = false; ///< needs no installation and no services, as the help does
    ApplicationTask task;

    /// The words include the program's name. Needs no application object; the task does. Qt's own
    /// options are mistakes until an application object with windows has taken them out, which is
    /// what such a mistake asks for. The application must live longer than the task.
    static ApplicationRequest read(const ApplicationDescription& application,
                                   const QStringList& words);
};
