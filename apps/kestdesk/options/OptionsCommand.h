#pragma once

#include <QString>
#include <QStringList>

/// The command "kestdesk options ...": shows and changes the user's launch options.
class OptionsCommand
{
public:
    /// The words behind "options". The program's exit code: 0, or 1 when the options could not be
    /// read, changed or saved, or 2 when the words make no sense. Says why on standard error.
    static int run(const QStringList& words);

    /// How to use it, for the program's help.
    static QString usage();
};
