#include "MachinesCommand.h"

#include "LocalMachines.h"
#include "MachinesCheck.h"
#include "MachinesEditor.h"
#include "MachinesReport.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int exitRight = 0;
constexpr int exitWrong = 1;
constexpr int exitImpossible = 2;

constexpr int defaultLimit = 10;   // seconds
constexpr int longestLimit = 3600; // seconds

int showUsage()
{
    std::fprintf(stderr, "%s", qPrintable(MachinesCommand::usage()));
    return exitImpossible;
}

int show(const QStringList& words)
{
    const bool json = words == QStringList(QStringLiteral("--json"));
    if (!json && !words.isEmpty()) {
        return showUsage();
    }
    const MachinesReport report;
    if (json) {
        std::fputs(report.json().constData(), stdout);
    } else {
        Terminal terminal(stdout);
        report.write(terminal);
    }
    return report.isFound() && report.file().isValid() ? exitRight : exitWrong;
}

// The seconds that a host may take; 0 when the words make no sense.
int limit(const QStringList& words)
{
    if (words.isEmpty()) {
        return defaultLimit;
    }
    const QString option = QStringLiteral("--timeout");
    const QString word = words.join(QLatin1Char('='));
    const int seconds =
        word.startsWith(option + QLatin1Char('=')) ? word.midRef(option.size() + 1).toInt() : 0;
    return seconds <= longestLimit ? std::max(seconds, 0) : 0;
}

int check(const QStringList& words)
{
    const int seconds = limit(words);
    if (seconds == 0) {
        return showUsage();
    }
    const MachinesReport report;
    {
        Terminal terminal(stdout);
        report.write(terminal);
    }
    if (!report.isFound()) {
        return exitImpossible;
    }
    return std::max(report.file().isValid() ? exitRight : exitWrong,
                    MachinesCheck(report.file(), seconds).exec());
}

int edit(const QStringList& words)
{
    return words.isEmpty() ? MachinesEditor().exec() : showUsage();
}

int reportError(const QString& text, int exitCode)
{
    Terminal(stderr).writeLine(QStringLiteral("kestdesk: ") + text, Terminal::Colour::Red);
    return exitCode;
}

int saveLocal(LocalMachines& machines)
{
    const QString error = machines.save();
    if (!error.isEmpty()) {
        return reportError(error, exitImpossible);
    }
    Terminal(stdout).writeLine(QStringLiteral("Saved %1 with the line \"%2\".")
                                   .arg(machines.fileName(), LocalMachines::line()));
    return exitRight;
}

// Hosts that somebody has named are replaced only on demand.
int useLocal(const QStringList& words)
{
    const bool mayReplace = words == QStringList(QStringLiteral("--replace"));
    if (!mayReplace && !words.isEmpty()) {
        return showUsage();
    }
    LocalMachines machines;
    switch (machines.state()) {
    case LocalMachines::State::NotChanged:
        return reportError(machines.error(), exitImpossible);
    case LocalMachines::State::Done:
        Terminal(stdout).writeLine(
            QStringLiteral("Nothing was changed: %1 has the line \"%2\" and no other host.")
                .arg(machines.origin(), LocalMachines::line()));
        return exitRight;
    case LocalMachines::State::Taken:
        if (!mayReplace) {
            const QString hosts = machines.hosts();
            return reportError(
                QStringLiteral("%1 %2; \"kestdesk machines use-local --replace\" saves %3 with the "
                               "line \"%4\" and keeps the others as comments")
                    .arg(machines.origin(),
                         hosts.isEmpty() ? QStringLiteral("has lines that are wrong")
                                         : QStringLiteral("names hosts already: ") + hosts,
                         machines.fileName(), LocalMachines::line()),
                exitWrong);
        }
        break;
    case LocalMachines::State::Free:
        break;
    }
    return saveLocal(machines);
}

struct Command
{
    const char* name;
    int (*run)(const QStringList& words);
    const char* arguments;
    const char* meaning;
};

// clang-format off
constexpr Command commands[] = {
    {"show",      show,     "[--json]",            "show the machines file in use and what is wrong with it"},
    {"check",     check,    "[--timeout SECONDS]", "and ask each host whether it answers, and for its cores"},
    {"edit",      edit,     "",                    "change the user's machines file with $VISUAL or $EDITOR"},
    {"use-local", useLocal, "[--replace]",         "let the user's machines file name this machine alone"},
};
// clang-format on

} // namespace

int MachinesCommand::run(const QStringList& words)
{
    const QString name = words.value(0);
    const auto* const command =
        std::find_if(std::cbegin(commands), std::cend(commands),
                     [&name](const Command& row) { return name == QLatin1String(row.name); });
    return command == std::cend(commands) ? showUsage() : command->run(words.mid(1));
}

QString MachinesCommand::usage()
{
    QString text = QStringLiteral("Usage: kestdesk machines COMMAND\n");
    for (const Command& command : commands) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QStringLiteral("%1 %2").arg(QLatin1String(command.name),
                                                     QLatin1String(command.arguments)),
                         -26)
                    .arg(QLatin1String(command.meaning));
    }
    return text + QStringLiteral("  Exit code: 0 all fine, 1 something is wrong, 2 it could not be "
                                 "done, 130 stopped.\n");
}
