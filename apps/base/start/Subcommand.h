// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

class SubcommandWords;

/// An option of a subcommand: without value, with an integer, or with a text.
struct SubcommandOption
{
    const char* name;           ///< with its hyphens
    const char* valueName = ""; ///< of the value, such as "SECONDS"; empty without value
    int least = 0;              ///< of the number
    int most = 0;               ///< of the number; 0 for an option that takes a text

    bool takesValue() const { return *valueName != '\0'; }
    bool takesNumber() const { return takesValue() && most > 0; }

    /// The syntax in the help: "[--wait SECONDS]".
    QString syntax() const;
};

/// A row of the table of an application's subcommands, such as "get" of "kestdesk options".
struct Subcommand
{
    const char* name;
    QVector<SubcommandOption> options;
    const char* operands; ///< "NAME" for a word, "NAME..." for one or more, "[NAME]" for one that
                          ///< may be missing, "[NAME...]" for any number; several with blanks
    const char* meaning;  ///< QT_TRANSLATE_NOOP("Subcommand", ...)
    int (*run)(const SubcommandWords& words); ///< returns the exit code

    /// The name with the options and the operands, for the help.
    QString syntax() const;
};
