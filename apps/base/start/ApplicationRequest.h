// SPDX-License-Identifier: MIT
#pragma once

#include "ApplicationTask.h"
#include "WindowSystem.h"

#include <QStringList>

struct ApplicationDescription;

/// The task that a command line asks for.
struct ApplicationRequest
{
    WindowSystem windowSystem = WindowSystem::None;
    bool isStandalone = false; ///< needs no installation and no services, as the help does
    ApplicationTask task;

    /// The words include the program's name. Needs no application object, but the task does. Qt's
    /// own options are errors until an application object with windows has removed them; on such an
    /// error the task asks for that object. The description must outlive the task.
    static ApplicationRequest read(const ApplicationDescription& application,
                                   const QStringList& words);
};
