#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QSize>
#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Request { ShowWindow, WriteFile, ShowText, Refuse };

    Request request = Request::Refuse;
    QString text; ///< what to show, or why the command line is refused
    QStringList results;
    QString output;
    QSize size;

    /// The arguments include the program's name.
    static CommandLine parsed(const QStringList& arguments);

    /// Whether nothing of what the arguments ask for needs a display. Must be known before there is
    /// an application object.
    static bool isWithoutWindow(int argc, char* argv[]);
};

#endif
