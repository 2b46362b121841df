// SPDX-License-Identifier: MIT
#pragma once

#include "ApplicationIdentity.h"
#include "ApplicationOption.h"
#include "ApplicationTask.h"
#include "SubcommandGroup.h"
#include "WindowSystem.h"

#include <QString>
#include <QVector>

#include <functional>

class QCommandLineParser;

/// Describes an application of the suite for ApplicationStart::run(): its texts, its options and
/// its tasks.
struct ApplicationDescription
{
    ApplicationIdentity identity;

    QString purpose;            ///< the first paragraph of the help
    QString exitCodes;          ///< of --non-interactive, for the help
    QString notes;              ///< further lines of the help; may be empty
    QString nonInteractiveHelp; ///< what --non-interactive does
    QString displayAlternative; ///< hint on --non-interactive for a user without a display

    QVector<ApplicationOption> options;
    QString fileKind;   ///< kind of the positional arguments, such as "model"
    QString fileHelp;   ///< their line of the help
    QString fileSyntax; ///< their syntax in the usage; empty for the kind alone

    /// Groups of subcommands.
    QVector<SubcommandGroup> commandGroups;

    /// The commands of a program that has no window. It consists of these alone, and needs no
    /// installation and no services; of the rest of this description it uses the identity and the
    /// notes.
    QVector<Subcommand> consoleCommands;

    /// Called before the services are set and the task is run; may be empty.
    std::function<void()> prepare;

    /// Makes the task with a window. The command line has been parsed without errors.
    std::function<ApplicationTask(const QCommandLineParser& parser)> windowTask;

    /// Makes the task without a window. At least one file has been named.
    std::function<ApplicationTask(const QCommandLineParser& parser)> nonInteractiveTask;
    WindowSystem nonInteractiveSystem = WindowSystem::None; ///< needed by that task
};
