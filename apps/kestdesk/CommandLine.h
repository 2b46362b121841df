#pragma once

#include <common_RunWrapper.h>

#include <QString>
#include <QStringList>

struct Component;

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Request { ShowWindow, RunModels, EditOptions, UseMachines, ShowText, Refuse };

    Request request = Request::Refuse;
    QString text;                         ///< what to show, or why the command line is refused
    const Component* component = nullptr; ///< null where the window is to choose
    common_RunWrapper::RunOptions options;
    QStringList models;
    QStringList words; ///< behind "options" or "machines"

    /// The arguments include the program's name.
    static CommandLine parse(const QStringList& arguments);

    /// Whether the arguments ask for the window, which decides what kind of application object
    /// there must be. Needs none itself.
    static bool asksForWindow(const QStringList& arguments);
};
