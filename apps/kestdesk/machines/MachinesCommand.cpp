// SPDX-License-Identifier: MIT
#include "MachinesCommand.h"

#include "LocalMachines.h"
#include "MachinesCheck.h"
#include "MachinesEditor.h"
#include "MachinesReport.h"

#include <SubcommandWords.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MachinesCommand)
};

constexpr int exitRight = 0;
constexpr int exitWrong = 1;
constexpr int exitImpossible = 2;

constexpr int defaultLimit = 10;   // seconds
constexpr int longestLimit = 3600; // seconds

constexpr SubcommandOption jsonOption = {"--json"};
constexpr SubcommandOption timeoutOption = {"--timeout", "SECONDS", 1, longestLimit};
constexpr SubcommandOption replaceOption = {"--replace"};

int show(const SubcommandWords& words)
{
    const MachinesReport report;
    if (words.has(jsonOption.name)) {
        std::fputs(report.json().constData(), stdout);
    } else {
        Terminal terminal(stdout);
        report.write(terminal);
    }
    return report.isUsable() ? exitRight : exitWrong;
}

int check(const SubcommandWords& words)
{
    const MachinesReport report;
    {
        Terminal terminal(stdout);
        report.write(terminal);
    }
    if (!report.isFound()) {
        return exitImpossible;
    }
    return std::max(
        report.isUsable() ? exitRight : exitWrong,
        MachinesCheck(report.machines(), words.number(timeoutOption.name, defaultLimit)).exec());
}

int edit(const SubcommandWords& /*words*/)
{
    return MachinesEditor().exec();
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
    Terminal(stdout).writeLine(Texts::tr("Saved %1 with the line \"%2\".")
                                   .arg(machines.fileName(), LocalMachines::line()));
    return exitRight;
}

QString replacementHint(const LocalMachines& machines)
{
    const QString hosts = machines.hosts();
    const QString problem =
        hosts.isEmpty() ? Texts::tr("%1 has lines that are wrong").arg(machines.origin())
                        : Texts::tr("%1 names hosts already: %2").arg(machines.origin(), hosts);
    return Texts::tr("%1; \"kestdesk machines use-local --replace\" saves %2 with the "
                     "line \"%3\" and keeps the others as comments")
        .arg(problem, machines.fileName(), LocalMachines::line());
}

// Hosts that the user has named are replaced only on demand.
int useLocal(const SubcommandWords& words)
{
    LocalMachines machines;
    switch (machines.state()) {
    case LocalMachines::State::NotChanged:
        return reportError(machines.error(), exitImpossible);
    case LocalMachines::State::Done:
        Terminal(stdout).writeLine(
            Texts::tr("Nothing was changed: %1 has the line \"%2\" and no other host.")
                .arg(machines.origin(), LocalMachines::line()));
        return exitRight;
    case LocalMachines::State::Taken:
        return words.has(replaceOption.name) ? saveLocal(machines)
                                             : reportError(replacementHint(machines), exitWrong);
    case LocalMachines::State::Free:
        break;
    }
    return saveLocal(machines);
}

} // namespace

SubcommandGroup MachinesCommand::group()
{
    // clang-format off
    return {QStringLiteral("machines"), {
        {"show",      {jsonOption},    "", QT_TRANSLATE_NOOP("Subcommand", "show the machines file in use and what is wrong with it"), show},
        {"check",     {timeoutOption}, "", QT_TRANSLATE_NOOP("Subcommand", "and ask each host whether it answers, and for its cores"), check},
        {"edit",      {},              "", QT_TRANSLATE_NOOP("Subcommand", "change the user's machines file with $VISUAL or $EDITOR"), edit},
        {"use-local", {replaceOption}, "", QT_TRANSLATE_NOOP("Subcommand", "let the user's machines file name this machine alone"),    useLocal},
    }, Texts::tr("  Exit code: 0 all fine, 1 something is wrong, 2 it could not be done, 130 stopped.\n")};
    // clang-format on
}
