#include "OptionsCommand.h"

#include "LaunchOptionsFile.h"
#include "OptionValue.h"

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QMap>

#include <algorithm>
#include <cstdio>
#include <functional>

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

void complain(const QString& line)
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
        complain(QStringLiteral("there is no option \"%1\"; \"kestdesk options list\" shows all")
                     .arg(name));
    }
    return known;
}

int list(const QStringList& /*words*/)
{
    const Options options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    const QStringList all = names(options);
    for (const QString& name : all) {
        say(name + QLatin1Char('=') + value(options, name));
    }
    return exitDone;
}

int get(const QStringList& words)
{
    const Options options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    if (!knows(options, words.at(0))) {
        return exitFailed;
    }
    say(value(options, words.at(0)));
    return exitDone;
}

int showValues(const QStringList& words)
{
    const Options options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    if (!knows(options, words.at(0))) {
        return exitFailed;
    }
    const QStringList accepted =
        OptionValue::words(common_PropertyFactory::getMetaData(words.at(0)));
    std::for_each(accepted.cbegin(), accepted.cend(), say);
    return exitDone;
}

// The options to be written; null, with the owner named, when somebody else has them.
Options writableOptions()
{
    Options options = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    if (!options) {
        complain(
            QStringLiteral("%1 holds it; nothing was changed").arg(LaunchOptionsFile::owner()));
    }
    return options;
}

int save(const Options& options)
{
    const QStringList lost = LaunchOptionsFile::save(*options);
    if (!lost.isEmpty()) {
        complain(QStringLiteral("not saved in %1: %2")
                     .arg(options->getFileName(), lost.join(QStringLiteral(", "))));
        return exitFailed;
    }
    return exitDone;
}

// All of "NAME=VALUE..."; false, with every mistake named, when one is wrong.
bool parse(const Options& options, const QStringList& words, Values& values)
{
    bool good = true;
    for (const QString& word : words) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const QString typed = word.section(QLatin1Char('='), 1);
        if (!word.contains(QLatin1Char('='))) {
            complain(QStringLiteral("\"%1\" is not NAME=VALUE").arg(word));
            good = false;
        } else if (!knows(options, name)) {
            good = false;
        } else {
            const common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
            const std::optional<QString> stored = OptionValue::parsed(metaData, typed);
            if (stored) {
                values.insert(name, *stored);
            } else {
                complain(QStringLiteral("%1 accepts %2, and not \"%3\"")
                             .arg(name, OptionValue::accepted(metaData), typed));
                good = false;
            }
        }
    }
    return good;
}

int set(const QStringList& words)
{
    const Options options = writableOptions();
    Values values;
    if (!options || !parse(options, words, values)) {
        return exitFailed;
    }
    for (auto change = values.cbegin(); change != values.cend(); ++change) {
        common_PropertyReference property = (*options)[change.key()];
        property.assignFromQString(change.value());
        property.notify();
    }
    return save(options);
}

int restore(const QStringList& /*words*/)
{
    const Options options = writableOptions();
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
    int (*run)(const QStringList& words);
    const char* arguments;
    const char* meaning;
};

// clang-format off
constexpr Command commands[] = {
    {"list",    0, 0,    list,       "",              "show all options as NAME=VALUE"},
    {"get",     1, 1,    get,        "NAME",          "show the value of one"},
    {"set",     1, 9999, set,        "NAME=VALUE...", "change some, all or none of them"},
    {"restore", 0, 0,    restore,    "",              "take the installation's defaults"},
    {"values",  1, 1,    showValues, "NAME",          "show the words that one accepts"},
};
// clang-format on

} // namespace

int OptionsCommand::run(const QStringList& words)
{
    const QString name = words.value(0);
    const auto* const command =
        std::find_if(std::cbegin(commands), std::cend(commands),
                     [&name](const Command& row) { return name == QLatin1String(row.name); });
    const int count = words.size() - 1;
    if (command == std::cend(commands) || count < command->fewestWords ||
        count > command->mostWords) {
        std::fprintf(stderr, "%s", qPrintable(usage()));
        return exitUsage;
    }
    return command->run(words.mid(1));
}

QString OptionsCommand::usage()
{
    QString text = QStringLiteral("Usage: kestdesk options COMMAND\n");
    for (const Command& command : commands) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QStringLiteral("%1 %2").arg(QLatin1String(command.name),
                                                     QLatin1String(command.arguments)),
                         -22)
                    .arg(QLatin1String(command.meaning));
    }
    return text;
}
