#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Request { RunModels, EditOptions, ShowText, Refuse };

    Request request = Request::Refuse;
    QString text; ///< what to show, or why the command line is refused
    QString component;
    QStringList models;
    QStringList optionWords; ///< behind "options"

    /// The arguments include the program's name.
    static CommandLine parsed(const QStringList& arguments);
};

#endif
