// SPDX-License-Identifier: MIT
#include "LaunchPreview.h"

#include <common_ComponentsLaunchOptions.h>

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

using Options = common_ComponentsLaunchOptions;

bool isOn(const Options& options, const char* key)
{
    return options[QString::fromLatin1(key)].castToBool();
}

QString word(const QString& text)
{
    return text.isEmpty() || text.contains(QLatin1Char(' '))
               ? QLatin1Char('"') + text + QLatin1Char('"')
               : text;
}

QString commandLine(const QString& program, const QStringList& arguments)
{
    QStringList words(program);
    std::transform(arguments.cbegin(), arguments.cend(), std::back_inserter(words), word);
    return words.join(QLatin1Char(' '));
}

QString solver(const Options& options)
{
    const bool remote = isOn(options, "RunRemote");
    QStringList arguments = isOn(options, "RunParallel") ? options.getKestParallelOptions(remote)
                                                         : options.getKestSequentialOptions(remote);
    if (remote && options.isRemoteHostArgumentSpecified()) {
        arguments << QStringLiteral("--remote-host")
                  << options.getKestRemoteOptions().join(QLatin1Char(' '));
    }
    return commandLine(QStringLiteral("runkest"), arguments);
}

QString preProcessor(const Options& options)
{
    return commandLine(QStringLiteral("prekest"), options.getPrekestOptions());
}

QString utilities(const Options& options)
{
    return commandLine(QStringLiteral("adaptkest"), options.getAdaptkestOptions()) +
           QStringLiteral("   |   ") +
           commandLine(QStringLiteral("optkest"), options.getOptkestOptions());
}

QString amr(const Options& options)
{
    return commandLine(QStringLiteral("amrkest"), options.getAmrkestOptions());
}

QString environment(const Options& options)
{
    QStringList assignments = options.getEnvironmentOptions();
    assignments.removeAll(QString());
    return assignments.join(QStringLiteral("   "));
}

struct Tab
{
    const char* title;
    QString (*line)(const Options& options);
};

constexpr Tab tabs[] = {
    {"Kest Solver", solver},      {"Pre-processor", preProcessor},
    {"Utilities", utilities},     {"AMR", amr},
    {"Environment", environment},
};

} // namespace

QString LaunchPreview::line(const QString& tab, const common_ComponentsLaunchOptions& options)
{
    const auto* const found =
        std::find_if(std::cbegin(tabs), std::cend(tabs),
                     [&tab](const Tab& row) { return tab == QLatin1String(row.title); });
    return found == std::cend(tabs) ? QString() : found->line(options);
}
