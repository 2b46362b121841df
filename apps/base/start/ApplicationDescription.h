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

/// What distinguishes an application of the suite from the others: its texts, its options, and what
/// it does. ApplicationStart::run() does the rest.
struct ApplicationDescription
{
    ApplicationIdentity identity;

    QString purpose;            ///< the first paragraph of the help
    QString exitCodes;          ///< of --non-interactive, for the help
    QString notes;              ///< further lines of the help; may be empty
    QString nonInteractiveHelp; ///< what --non-interactive does
    QString displayAlternative; ///< what --non-interactive does for a user without a display

    QVector<ApplicationOption> options;
    QString fileKind;   ///< what the positional arguments name, such as "model"
    QString fileHelp;   ///< their line of the help
    QString fileSyntax; ///< how the usage shows them; empty for the kind alone

    /// First words that are followed by words of their own.
    QVector<SubcommandGroup> commandGroups;

    /// The commands of a program that has no window. It consists of these alone, and needs no
    /// installation and no services; of the rest of this description it uses the identity and the
    /// notes.
    QVector<Subcommand> consoleCommands;

    /// Done before the services are set and the task is run; may be empty.
    std::function<void()> prepare;

    /// What to do with a window. The command line has been parsed without a mistake.
    std::function<ApplicationTask(const QCommandLineParser& parser)> windowTask;

    /// What to do without a window; at least one file is named.
    std::function<ApplicationTask(const QCommandLineParser& parser)> nonInteractiveTask;
    WindowSystem nonInteractiveSystem = WindowSystem::None; ///< what that needs
};
