#include "OptionsCommand.h"

#include "LaunchOptionTable.h"
#include "LaunchOptionsFile.h"
#include "OptionRules.h"
#include "OptionValue.h"
#include "OptionsLock.h"

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QMap>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>

namespace {

using Options = common_ComponentsLaunchOptions::Pointer;
using Values = QMap<QString, QString>;

constexpr int exitDone = 0;
constexpr int exitFailed = 1;
constexpr int exitUsage = 2;

void say(const QString& line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
}

void reportError(const QString& line)
{
    std::fprintf(stderr, "kestdesk: %s\n", qUtf8Printable(line));
}

QStringList names(const Options& options)
{
    return LaunchOptionsFile::keptNames(*options);
}

QString value(const Options& options, const QString& name)
{
    return LaunchOptionsFile::value(*options, name);
}

bool knows(const Options& options, const QString& name)
{
    const bool known = names(options).contains(name);
    if (!known) {
        reportError(QStringLiteral("there is no option \"%1\"; \"kestdesk options list\" shows all")
                        .arg(name));
    }
    return known;
}

// The options as they are in the file; null, with the reason told, when they cannot be read.
Options readableOptions()
{
    const QString problem = LaunchOptionsFile::problem();
    if (!problem.isEmpty()) {
        reportError(problem);
        return Options();
    }
    return common_ComponentsLaunchOptions::create(ReadOnlyAccess);
}

int list(const QStringList& /*words*/, int /*wait*/)
{
    const Options options = readableOptions();
    if (!options) {
        return exitFailed;
    }
    const QStringList all = names(options);
    for (const QString& name : all) {
        say(name + QLatin1Char('=') + value(options, name));
    }
    return exitDone;
}

int get(const QStringList& words, int /*wait*/)
{
    const Options options = readableOptions();
    if (!options || !knows(options, words.at(0))) {
        return exitFailed;
    }
    say(value(options, words.at(0)));
    return exitDone;
}

int showValues(const QStringList& words, int /*wait*/)
{
    const Options options = readableOptions();
    if (!options || !knows(options, words.at(0))) {
        return exitFailed;
    }
    const QStringList accepted =
        OptionValue::words(common_PropertyFactory::getMetaData(words.at(0)));
    std::for_each(accepted.cbegin(), accepted.cend(), say);
    return exitDone;
}

// The options to be written; null, with the reason told, when somebody else keeps them or the file
// cannot be used.
Options writableOptions(int wait)
{
    for (const QString& problem :
         {LaunchOptionsFile::problem(), LaunchOptionsFile::lockProblem()}) {
        if (!problem.isEmpty()) {
            reportError(problem + QStringLiteral("; nothing was changed"));
            return Options();
        }
    }
    Options options = OptionsLock::wait(wait, reportError);
    if (!options) {
        reportError(
            QStringLiteral("%1 holds it; nothing was changed").arg(LaunchOptionsFile::owner()));
    }
    return options;
}

// Names what is lost; of the options that were to be changed, if there are such.
int save(const Options& options, const QStringList& changed = QStringList())
{
    const LaunchOptionsFile::Saving saving = LaunchOptionsFile::save(*options);
    if (saving.lost.isEmpty()) {
        return exitDone;
    }
    QStringList named;
    std::copy_if(changed.cbegin(), changed.cend(), std::back_inserter(named),
                 [&saving](const QString& name) { return saving.lost.contains(name); });
    QString text = QStringLiteral("not saved in %1").arg(options->getFileName());
    if (!saving.reason.isEmpty()) {
        text += QStringLiteral(", because ") + saving.reason;
    }
    reportError(text + QStringLiteral(": ") +
                (named.isEmpty() ? saving.lost : named).join(QStringLiteral(", ")));
    return exitFailed;
}

// In one line of moderate length, and without what steers a terminal.
QString shown(const QString& typed)
{
    constexpr int longest = 100;
    QString text = typed.size() > longest ? typed.left(longest) + QStringLiteral("...") : typed;
    std::replace_if(
        text.begin(), text.end(), [](QChar each) { return !each.isPrint(); }, QLatin1Char('?'));
    return text;
}

// Takes over the value; false, with the mistake named, when it is wrong.
bool parseValue(const QString& name, const QString& typed, Values& values)
{
    const common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
    const std::optional<QString> stored = OptionValue::parse(metaData, typed);
    if (stored) {
        values.insert(name, *stored);
        return true;
    }
    const QString reason = OptionRules::problem(metaData, typed);
    reportError(QStringLiteral("%1 accepts %2, and not \"%3\"")
                    .arg(name, OptionValue::accepted(metaData), shown(typed)) +
                (reason.isEmpty() ? reason : QStringLiteral(". ") + reason));
    return false;
}

// All of "NAME=VALUE..."; false, with every mistake named, when one is wrong.
bool parse(const Options& options, const QStringList& words, Values& values)
{
    bool good = true;
    for (const QString& word : words) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        if (!word.contains(QLatin1Char('='))) {
            reportError(QStringLiteral("\"%1\" is not NAME=VALUE").arg(shown(word)));
            good = false;
        } else {
            good = knows(options, name) &&
                   parseValue(name, word.section(QLatin1Char('='), 1), values) && good;
        }
    }
    return good;
}

// What is set and has no effect because it is empty. Perhaps the next command fills it.
void warnOfEmptyValues(const Options& options, const Values& changed)
{
    for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
        const QString name = QString::fromLatin1(row.key);
        const QString switchName = QString::fromLatin1(row.switchKey);
        const bool concerns = changed.contains(name) || changed.contains(switchName);
        const QString warning = OptionRules::emptyProblem(row.metaData());
        if (concerns && !warning.isEmpty() && value(options, name).isEmpty() &&
            value(options, switchName) == QLatin1String("true")) {
            reportError(QStringLiteral("%1 is empty, so %2 is without effect. %3")
                            .arg(name, switchName, warning));
        }
    }
}

int set(const QStringList& words, int wait)
{
    const Options options = writableOptions(wait);
    Values values;
    if (!options || !parse(options, words, values)) {
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

int restore(const QStringList& /*words*/, int wait)
{
    const QString problem = LaunchOptionsFile::defaultsProblem();
    if (!problem.isEmpty()) {
        reportError(problem + QStringLiteral("; nothing was changed"));
        return exitFailed;
    }
    const Options options = writableOptions(wait);
    if (!options) {
        return exitFailed;
    }
    options->restoreDefaults();
    return save(options);
}

struct Command
{
    const char* name;
    int fewestWords;
    int mostWords;
    bool waits; ///< for the lock
    int (*run)(const QStringList& words, int wait);
    const char* arguments;
    const char* meaning;
};

// clang-format off
constexpr Command commands[] = {
    {"list",    0, 0,    false, list,       "",                                 "show all options as NAME=VALUE"},
    {"get",     1, 1,    false, get,        "NAME",                             "show the value of one"},
    {"set",     1, 9999, true,  set,        "[--wait SECONDS] NAME=VALUE...",   "change some, all or none of them"},
    {"restore", 0, 0,    true,  restore,    "[--wait SECONDS]",                 "take the installation's defaults"},
    {"values",  1, 1,    false, showValues, "NAME",                             "show the words that one accepts"},
};
// clang-format on

constexpr int defaultWait = 5;    // seconds
constexpr int longestWait = 3600; // seconds

bool isWait(const QString& word)
{
    return word == QLatin1String("--wait") || word.startsWith(QLatin1String("--wait="));
}

// Takes "--wait SECONDS" or "--wait=SECONDS" out of the words; the seconds, or nothing, with the
// mistake named, when they make no sense.
std::optional<int> takeWait(QStringList& words)
{
    const auto option = std::find_if(words.begin(), words.end(), isWait);
    if (option == words.end()) {
        return defaultWait;
    }
    const int index = static_cast<int>(option - words.begin());
    const bool isApart = !option->contains(QLatin1Char('='));
    const QString typed = isApart ? words.value(index + 1) : option->section(QLatin1Char('='), 1);
    words.erase(option, option + std::min<int>(isApart ? 2 : 1, words.size() - index));
    bool isNumber = false;
    const int seconds = typed.toInt(&isNumber);
    const bool isTwice = std::any_of(words.cbegin(), words.cend(), isWait);
    if (isNumber && seconds >= 0 && seconds <= longestWait && !isTwice) {
        return seconds;
    }
    reportError(isTwice ? QStringLiteral("--wait is given twice")
                        : QStringLiteral("--wait takes whole seconds from 0 to %1, and not \"%2\"")
                              .arg(longestWait)
                              .arg(shown(typed)));
    return std::nullopt;
}

int showUsage()
{
    std::fprintf(stderr, "%s", qPrintable(OptionsCommand::usage()));
    return exitUsage;
}

} // namespace

int OptionsCommand::run(const QStringList& words)
{
    const QString name = words.value(0);
    const auto* const command =
        std::find_if(std::cbegin(commands), std::cend(commands),
                     [&name](const Command& row) { return name == QLatin1String(row.name); });
    if (command == std::cend(commands)) {
        return showUsage();
    }
    QStringList rest = words.mid(1);
    const std::optional<int> wait = command->waits ? takeWait(rest) : 0;
    if (!wait) {
        return exitUsage;
    }
    if (rest.size() < command->fewestWords || rest.size() > command->mostWords) {
        return showUsage();
    }
    return command->run(rest, *wait);
}

QString OptionsCommand::usage()
{
    QString text = QStringLiteral("Usage: kestdesk options COMMAND\n");
    for (const Command& command : commands) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QStringLiteral("%1 %2").arg(QLatin1String(command.name),
                                                     QLatin1String(command.arguments)),
                         -34)
                    .arg(QLatin1String(command.meaning));
    }
    return text +
           QStringLiteral("  While another process holds the options, set and restore wait for "
                          "%1 seconds, or for\n  those of --wait; 0 waits not at all.\n")
               .arg(defaultWait);
}
