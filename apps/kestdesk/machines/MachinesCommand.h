#pragma once

#include <QString>
#include <QStringList>

/// The command "kestdesk machines ...": shows, checks and changes the machines file.
class MachinesCommand
{
public:
    /// The words behind "machines". The program's exit code: 0, or 1 when something is wrong with
    /// the file or a host, or 2 when the command could not be done, or 130 when it was stopped.
    static int run(const QStringList& words);

    /// How to use it, for the program's help.
    static QString usage();
};
