#pragma once

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

    /// The arguments include the program's name. Needs an application object, which helpText()
    /// names the program by.
    static CommandLine parse(const QStringList& arguments);

    /// The request alone, which decides what application object is needed.
    static Request requestOf(const QStringList& arguments);
};
