// SPDX-License-Identifier: MIT
#include "RunsCommand.h"

#include "ComparisonReport.h"
#include "RepeatedRun.h"
#include "RunColours.h"
#include "RunListReport.h"
#include "RunNumbers.h"

#include <ErrorOutput.h>
#include <KestdeskSettings.h>
#include <MessageReader.h>
#include <RecordExport.h>
#include <RecordFolder.h>
#include <RunComparison.h>
#include <RunTexts.h>
#include <SubcommandWords.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <climits>
#include <cstdio>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunsCommand)
};

constexpr int exitDone = 0;
constexpr int exitFailed = 1;
constexpr int exitRefused = 2;

constexpr int mostListed = 1000000;
constexpr int mostDays = 36500;
constexpr int mostMegabytes = 1000000;

constexpr SubcommandOption jsonOption = {"--json"};
constexpr SubcommandOption modelOption = {"--model", "NAME"};
constexpr SubcommandOption stateOption = {"--state", "WORD"};
constexpr SubcommandOption lastOption = {"--last", "N", 1, mostListed};
constexpr SubcommandOption messagesOption = {"--messages"};
constexpr SubcommandOption outputOption = {"--output"};
constexpr SubcommandOption daysOption = {"--days", "N", 0, mostDays};
constexpr SubcommandOption megabytesOption = {"--megabytes", "N", 0, mostMegabytes};
constexpr SubcommandOption largestOption = {"--megabytes", "N", 1, mostMegabytes};
constexpr SubcommandOption allOption = {"--all"};
constexpr SubcommandOption resumeOption = {"--resume"};
constexpr SubcommandOption withoutOption = {"--without", "HOST"};

int fail(const QString& problem, int exitCode = exitFailed)
{
    ErrorOutput::print(problem);
    return exitCode;
}

int fail(const RunNumbers& numbers, int exitCode = exitFailed)
{
    return fail(numbers.problem(), numbers.isInvalidWord() ? exitRefused : exitCode);
}

void print(const QJsonObject& json)
{
    std::fputs(QJsonDocument(json).toJson().constData(), stdout);
}

// The archive, after the records of interrupted runs have been completed.
RunArchive archive()
{
    RunArchive result = RunArchive::ofUser();
    result.closeInterrupted();
    return result;
}

int list(const SubcommandWords& words)
{
    const RunListReport::Filter filter = {words.text(modelOption.name),
                                          words.text(stateOption.name),
                                          words.number(lastOption.name, 0)};
    const QStringList states = RunListReport::stateWords();
    if (!filter.state.isEmpty() && !states.contains(filter.state)) {
        return fail(Texts::tr("\"%1\" is no state of a run; the states are %2")
                        .arg(filter.state, states.join(QStringLiteral(", "))),
                    exitRefused);
    }
    const RunArchive runs = archive();
    const QVector<RunRecord> all = runs.allRecords();
    const QVector<RunRecord> found = RunListReport::filtered(all, filter);
    if (words.has(jsonOption.name)) {
        QJsonArray array;
        for (const RunRecord& record : found) {
            array.append(record.toJson());
        }
        print({{QStringLiteral("runs"), array}});
    } else if (!found.isEmpty()) {
        Terminal terminal(stdout);
        RunListReport::write(found, terminal);
    } else {
        fail(all.isEmpty() ? Texts::tr("no runs are recorded")
                           : Texts::tr("no recorded run is like that"));
    }
    return found.isEmpty() ? exitFailed : exitDone;
}

QJsonArray messagesOf(const RunRecord& record)
{
    QJsonArray array;
    MessageReader(RecordFolder(record.folder).messagesFile())
        .readAll([&array](const RecordedMessage& message) { array.append(message.toJson()); });
    return array;
}

int show(const SubcommandWords& words)
{
    RunNumbers numbers(archive());
    const auto record = numbers.record(words.operands().value(0, QStringLiteral("last")));
    if (!record) {
        return fail(numbers);
    }
    const bool wantsMessages = words.has(messagesOption.name);
    const bool wantsOutput = words.has(outputOption.name);
    if (wantsOutput && (wantsMessages || words.has(jsonOption.name))) {
        return fail(Texts::tr("--output shows the output alone"), exitRefused);
    }
    if (words.has(jsonOption.name)) {
        QJsonObject json = record->toJson();
        if (wantsMessages) {
            json.insert(QStringLiteral("messages"), messagesOf(*record));
        }
        print(json);
        return exitDone;
    }
    Terminal terminal(stdout);
    const auto lines = RunSummary::of(*record, wantsOutput     ? RunSummary::Messages::Output
                                               : wantsMessages ? RunSummary::Messages::All
                                                               : RunSummary::Messages::Findings);
    for (const RunSummary::Line& line : lines) {
        terminal.writeLine(line.text, RunColours::of(line.kind));
    }
    return exitDone;
}

int again(const SubcommandWords& words)
{
    RunNumbers numbers(archive());
    const auto record = numbers.record(words.operands().constFirst());
    if (!record) {
        return fail(numbers);
    }
    const bool isJson = words.has(jsonOption.name);
    QStringList hosts;
    if (words.has(withoutOption.name)) {
        hosts = words.text(withoutOption.name).split(QLatin1Char(','));
        hosts.removeDuplicates();
    }
    if (hosts.contains(QString())) {
        return fail(Texts::tr("--without takes hosts with commas between them"), exitRefused);
    }
    return words.has(resumeOption.name) ? RepeatedRun::resume(*record, hosts, isJson)
                                        : RepeatedRun::exec(*record, hosts, isJson);
}

int compare(const SubcommandWords& words)
{
    RunNumbers numbers(archive());
    const auto left = numbers.record(words.operands().at(0));
    if (!left) {
        return fail(numbers, exitRefused);
    }
    const auto right = numbers.record(words.operands().at(1));
    if (!right) {
        return fail(numbers, exitRefused);
    }
    const RunComparison comparison = RunComparison::of(*left, *right);
    if (words.has(jsonOption.name)) {
        print(comparison.toJson());
    } else {
        Terminal terminal(stdout);
        ComparisonReport::write(comparison, terminal);
    }
    return comparison.isSame() ? exitDone : exitFailed;
}

int exportRun(const SubcommandWords& words)
{
    constexpr qint64 megabyte = 1'000'000;
    RunNumbers numbers(archive());
    const auto record = numbers.record(words.operands().at(0));
    const QString& path = words.operands().at(1);
    if (!record) {
        return fail(numbers);
    }
    if (!path.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive)) {
        return fail(Texts::tr("the name of the export must end in .zip, and %1 does not").arg(path),
                    exitRefused);
    }
    QString problem;
    const int usual = static_cast<int>(RecordExport::usualResultBytes / megabyte);
    const qint64 most = words.number(largestOption.name, usual) * megabyte;
    if (!RecordExport::exportRecord(*record, path, problem, most)) {
        return fail(problem);
    }
    Terminal(stdout).writeLine(
        Texts::tr("Wrote %1 (%2).")
            .arg(QDir::toNativeSeparators(path), RunTexts::size(QFileInfo(path).size())));
    return exitDone;
}

int report(int removed)
{
    Terminal(stdout).writeLine(Texts::tr("Deleted %1.").arg(RunTexts::counted(removed, "record")));
    return exitDone;
}

// Looks all numbers up before the first record is deleted.
int cleanNumbers(const QStringList& words)
{
    const RunArchive runs = archive();
    RunNumbers numbers(runs);
    QVector<int> wanted;
    for (const QString& word : words) {
        const auto number = numbers.parse(word);
        if (!number) {
            return fail(numbers);
        }
        if (!runs.numbers().contains(*number)) {
            return fail(Texts::tr("there is no run %1; nothing was deleted").arg(*number));
        }
        if (!wanted.contains(*number)) {
            wanted.append(*number);
        }
    }
    int exitCode = exitDone;
    int removed = 0;
    for (const int number : qAsConst(wanted)) {
        if (runs.remove(number)) {
            ++removed;
        } else {
            const auto record = runs.record(number);
            exitCode = fail(record && !record->hasEnded()
                                ? Texts::tr("run %1 is still running").arg(number)
                                : Texts::tr("the record of run %1 cannot be deleted").arg(number));
        }
    }
    report(removed);
    return exitCode;
}

int cleanAll()
{
    const RunArchive runs = archive();
    const QVector<RunRecord> all = runs.allRecords();
    return report(
        static_cast<int>(std::count_if(all.cbegin(), all.cend(), [&runs](const RunRecord& record) {
            return runs.remove(record.number);
        })));
}

// Uses the limits of the settings if none are given.
int cleanLimits(const SubcommandWords& words)
{
    const bool hasLimit = words.has(daysOption.name) || words.has(megabytesOption.name);
    const KestdeskSettings settings = KestdeskSettings::read();
    const int days = hasLimit ? mostDays : settings.archiveDays();
    const int megabytes = hasLimit ? mostMegabytes : settings.archiveMegabytes();
    return report(archive().prune(
        {words.number(daysOption.name, days), words.number(megabytesOption.name, megabytes)}));
}

int clean(const SubcommandWords& words)
{
    const bool hasLimit = words.has(daysOption.name) || words.has(megabytesOption.name);
    const bool isAll = words.has(allOption.name);
    if ((hasLimit ? 1 : 0) + (isAll ? 1 : 0) + (words.operands().isEmpty() ? 0 : 1) > 1) {
        return fail(Texts::tr("limits, --all and numbers exclude each other"), exitRefused);
    }
    if (isAll) {
        return cleanAll();
    }
    return words.operands().isEmpty() ? cleanLimits(words) : cleanNumbers(words.operands());
}

} // namespace

SubcommandGroup RunsCommand::group()
{
    // clang-format off
    return {QStringLiteral("runs"), {
        {"list",    {jsonOption, modelOption, stateOption, lastOption}, "", QT_TRANSLATE_NOOP("Subcommand", "show the recorded runs, the newest first"),           list},
        {"show",    {jsonOption, messagesOption, outputOption}, "[NUMBER]", QT_TRANSLATE_NOOP("Subcommand", "show how a run was started and how it ended"),        show},
        {"again",   {jsonOption, resumeOption, withoutOption}, "NUMBER",    QT_TRANSLATE_NOOP("Subcommand", "run it once more, or resume it, exactly as it was"),  again},
        {"compare", {jsonOption},                      "NUMBER NUMBER",     QT_TRANSLATE_NOOP("Subcommand", "show how two runs differ, and their results"),        compare},
        {"export",  {largestOption},                   "NUMBER FILE.zip",   QT_TRANSLATE_NOOP("Subcommand", "write one file for the support"),                     exportRun},
        {"clean",   {daysOption, megabytesOption, allOption}, "[NUMBER...]", QT_TRANSLATE_NOOP("Subcommand", "delete old records, or those of the numbers, or all"), clean},
    }, Texts::tr("  A NUMBER is that of \"list\", or \"last\". Exit code: 0 done, 1 no such run or failed, 2 wrong\n"
                      "  command. Of \"compare\": 0 the same, 1 different, 2 not compared. Of \"again\": that of the run.\n")};
    // clang-format on
}
