#pragma once

#include <QString>

class SubcommandWords;

/// An option of a subcommand: a word, or a word and a whole number.
struct SubcommandOption
{
    const char* name;           ///< with its hyphens
    const char* valueName = ""; ///< the unit of the number, such as "SECONDS"; empty without one
    int least = 0;              ///< of the number
    int most = 0;
};

/// A row of the table of an application's subcommands, such as "get" of "kestdesk options".
struct Subcommand
{
    const char* name;
    const SubcommandOption* option; ///< the one that it takes, or null
    const char* operands; ///< "" for none, "NAME" for one word, "NAME..." for one word or more
    const char* meaning;
    int (*run)(const SubcommandWords& words); ///< returns the exit code

    /// The name with the option and the operands, for the help.
    QString syntax() const;
};
