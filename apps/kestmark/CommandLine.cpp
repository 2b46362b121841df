// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include "CheckCommand.h"

#include <QCoreApplication>

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity.name = QStringLiteral("kestmark");
    result.consoleCommands = {
        {"check",
         {{"--remarks"}, {"--json"}},
         "[FILE|-]",
         QT_TRANSLATE_NOOP("Subcommand", "explain what the suite makes of a solver's output"),
         checkOutput}};
    result.notes = QCoreApplication::translate(
        "CommandLine",
        "\nReads what a solver component prints, from a file or from the standard input, with the "
        "parser\nof the suite's applications. Shows line by line which messages they get from it, "
        "and remarks\non what is probably a mistake.\n\n"
        "  --remarks      show only the lines with remarks\n"
        "  --json         the same as JSON\n"
        "  -h, --help     show this help\n"
        "  -v, --version  show the version\n\n"
        "Exit code: 0 nothing to remark, 1 remarks, 2 the output could not be read or the command "
        "line is wrong.\n");
    return result;
}
