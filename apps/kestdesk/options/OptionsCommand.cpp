// SPDX-License-Identifier: MIT
#include "OptionsCommand.h"

#include "LaunchOptionTable.h"
#include "LaunchOptionsFile.h"
#include "OptionRules.h"
#include "OptionValue.h"
#include "OptionsLock.h"
#include "ReasonText.h"

#include <ErrorOutput.h>
#include <SubcommandWords.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OptionsCommand)
};

using Options = common_ComponentsLaunchOptions::Pointer;
using Values = QMap<QString, QString>;

constexpr int exitDone = 0;
constexpr int exitFailed = 1;

constexpr int defaultWait = 5;    // seconds
constexpr int longestWait = 3600; // seconds

constexpr SubcommandOption jsonOption = {"--json"};
constexpr SubcommandOption waitOption = {"--wait", "SECONDS", 0, longestWait};

void printLine(const QString& line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
}

QStringList names(const Options& options)
{
    return LaunchOptionsFile::keptNames(*options);
}

QString value(const Options& options, const QString& name)
{
    return LaunchOptionsFile::value(*options, name);
}

QString unchanged(const QString& problem)
{
    return Texts::tr("%1; nothing was changed").arg(ReasonText::shown(problem));
}

bool knows(const Options& options, const QString& name)
{
    const bool known = names(options).contains(name);
    if (!known) {
        ErrorOutput::print(
            Texts::tr(R"(there is no option "%1"; "kestdesk options list" shows all)").arg(name));
    }
    return known;
}

// Returns the options in the file. If they cannot be read, prints the reason and returns null.
Options readableOptions()
{
    const QString problem = LaunchOptionsFile::problem();
    if (!problem.isEmpty()) {
        ErrorOutput::print(ReasonText::shown(problem));
        return Options();
    }
    return common_ComponentsLaunchOptions::create(ReadOnlyAccess);
}

QByteArray json(const Options& options)
{
    QJsonObject values;
    const QStringList all = names(options);
    for (const QString& name : all) {
        values.insert(name, value(options, name));
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("file"), options->getFileName()},
                                     {QStringLiteral("options"), values}})
        .toJson();
}

int list(const SubcommandWords& words)
{
    const Options options = readableOptions();
    if (!options) {
        return exitFailed;
    }
    if (words.has(jsonOption.name)) {
        std::fputs(json(options).constData(), stdout);
        return exitDone;
    }
    const QStringList all = names(options);
    for (const QString& name : all) {
        printLine(name + QLatin1Char('=') + value(options, name));
    }
    return exitDone;
}

int get(const SubcommandWords& words)
{
    const QString name = words.operands().constFirst();
    const Options options = readableOptions();
    if (!options || !knows(options, name)) {
        return exitFailed;
    }
    printLine(value(options, name));
    return exitDone;
}

int showValues(const SubcommandWords& words)
{
    const QString name = words.operands().constFirst();
    const Options options = readableOptions();
    if (!options || !knows(options, name)) {
        return exitFailed;
    }
    const QStringList accepted = OptionValue::words(common_PropertyFactory::getMetaData(name));
    std::for_each(accepted.cbegin(), accepted.cend(), printLine);
    return exitDone;
}

// Returns the options for writing. If another process has locked them or the file cannot be used,
// prints the reason and returns null.
Options writableOptions(int wait)
{
    for (const QString& problem :
         {LaunchOptionsFile::problem(), LaunchOptionsFile::lockProblem()}) {
        if (!problem.isEmpty()) {
            ErrorOutput::print(unchanged(problem));
            return Options();
        }
    }
    Options options = OptionsLock::wait(wait, ErrorOutput::print);
    if (!options) {
        ErrorOutput::print(Texts::tr("%1 holds it; nothing was changed")
                               .arg(ReasonText::shown(LaunchOptionsFile::owner())));
    }
    return options;
}

// Returns the exit code. Prints the options that could not be saved: those that were to be changed,
// or else all of them.
int save(const Options& options, const QStringList& changed = QStringList())
{
    const LaunchOptionsFile::Saving saving = LaunchOptionsFile::save(*options);
    if (saving.lost.isEmpty()) {
        return exitDone;
    }
    QStringList named;
    std::copy_if(changed.cbegin(), changed.cend(), std::back_inserter(named),
                 [&saving](const QString& name) { return saving.lost.contains(name); });
    const QString file = options->getFileName();
    const QString text = saving.reason.isEmpty()
                             ? Texts::tr("not saved in %1").arg(file)
                             : Texts::tr("not saved in %1, because %2").arg(file, saving.reason);
    ErrorOutput::print(text + QStringLiteral(": ") +
                       (named.isEmpty() ? saving.lost : named).join(QStringLiteral(", ")));
    return exitFailed;
}

// In one line of moderate length, and without control characters.
QString excerpt(const QString& typed)
{
    constexpr int longest = 100;
    QString text = typed.size() > longest ? typed.left(longest) + QStringLiteral("...") : typed;
    std::replace_if(
        text.begin(), text.end(), [](QChar each) { return !each.isPrint(); }, QLatin1Char('?'));
    return text;
}

// Adds the value to the values. Prints the error and returns false if it is invalid.
bool parseValue(const QString& name, const QString& typed, Values& values)
{
    const common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
    const std::optional<QString> stored = OptionValue::parse(metaData, typed);
    if (stored) {
        values.insert(name, *stored);
        return true;
    }
    const QString reason = OptionRules::problem(metaData, typed);
    ErrorOutput::print(Texts::tr("%1 accepts %2, and not \"%3\"")
                           .arg(name, OptionValue::accepted(metaData), excerpt(typed)) +
                       (reason.isEmpty() ? reason : QStringLiteral(". ") + reason));
    return false;
}

// Reads all of "NAME=VALUE...". Prints all errors and returns false if there are any.
bool parse(const Options& options, const QStringList& words, Values& values)
{
    bool isGood = true;
    for (const QString& word : words) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        if (!word.contains(QLatin1Char('='))) {
            ErrorOutput::print(Texts::tr("\"%1\" is not NAME=VALUE").arg(excerpt(word)));
            isGood = false;
        } else {
            isGood = knows(options, name) &&
                     parseValue(name, word.section(QLatin1Char('='), 1), values) && isGood;
        }
    }
    return isGood;
}

// Warns of options that are switched on but have no effect because they are empty. This is no
// error, since the next command may set them.
void warnOfEmptyValues(const Options& options, const Values& changed)
{
    for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
        const QString name = QString::fromLatin1(row.key);
        const QString switchName = QString::fromLatin1(row.switchKey);
        const bool concerns = changed.contains(name) || changed.contains(switchName);
        const QString warning = OptionRules::emptyProblem(row.metaData());
        if (concerns && !warning.isEmpty() && value(options, name).isEmpty() &&
            value(options, switchName) == QLatin1String("true")) {
            ErrorOutput::print(Texts::tr("%1 is empty, so %2 is without effect. %3")
                                   .arg(name, switchName, warning));
        }
    }
}

int set(const SubcommandWords& words)
{
    const Options options = writableOptions(words.number(waitOption.name, defaultWait));
    Values values;
    if (!options || !parse(options, words.operands(), values)) {
        return exitFailed;
    }
    for (auto change = values.cbegin(); change != values.cend(); ++change) {
        common_PropertyReference property = (*options)[change.key()];
        property.assignFromQString(change.value());
        property.notify();
    }
    const int exitCode = save(options, values.keys());
    warnOfEmptyValues(options, values);
    return exitCode;
}

int restore(const SubcommandWords& words)
{
    const QString problem = LaunchOptionsFile::defaultsProblem();
    if (!problem.isEmpty()) {
        ErrorOutput::print(unchanged(problem));
        return exitFailed;
    }
    const Options options = writableOptions(words.number(waitOption.name, defaultWait));
    if (!options) {
        return exitFailed;
    }
    options->restoreDefaults();
    return save(options);
}

} // namespace

SubcommandGroup OptionsCommand::group()
{
    // clang-format off
    return {QStringLiteral("options"), {
        {"list",    {jsonOption}, "",              QT_TRANSLATE_NOOP("Subcommand", "show all options as NAME=VALUE"),       list},
        {"get",     {},           "NAME",          QT_TRANSLATE_NOOP("Subcommand", "show the value of one"),                get},
        {"set",     {waitOption}, "NAME=VALUE...", QT_TRANSLATE_NOOP("Subcommand", "change some, all or none of them"),     set},
        {"restore", {waitOption}, "",              QT_TRANSLATE_NOOP("Subcommand", "take the installation's defaults"),     restore},
        {"values",  {},           "NAME",          QT_TRANSLATE_NOOP("Subcommand", "show the words that one accepts"),      showValues},
    }, Texts::tr("  While another process holds the options, set and restore wait for %1 seconds, or for\n"
                      "  those of --wait; 0 waits not at all.\n").arg(defaultWait)};
    // clang-format on
}
