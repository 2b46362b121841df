// SPDX-License-Identifier: MIT
#include "ApplicationRequest.h"

#include "ApplicationDescription.h"
#include "EngineVersion.h"
#include "QtOptions.h"
#include "Versions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

const QString nonInteractiveOption = QStringLiteral("non-interactive");
const QString helpAllOption = QStringLiteral("help-all");

void addOptions(QCommandLineParser& parser, const ApplicationDescription& application)
{
    parser.setApplicationDescription(
        application.purpose + QStringLiteral("\n\n") +
        QCoreApplication::translate("ApplicationRequest", "Exit code of --non-interactive: %1")
            .arg(application.exitCodes) +
        application.notes);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({nonInteractiveOption, application.nonInteractiveHelp});
    for (const ApplicationOption& own : application.options) {
        parser.addOption(own.option);
    }
    parser.addPositionalArgument(application.fileKind, application.fileHelp,
                                 application.fileSyntax);
}

QString helpText(const ApplicationDescription& application, QCommandLineParser& parser)
{
    if (parser.isSet(helpAllOption)) {
        parser.addOptions(QtOptions::all());
    }
    QString text = parser.helpText();
    for (const SubcommandGroup& group : application.commandGroups) {
        text += QLatin1Char('\n') + group.usage();
    }
    return text;
}

QString versionText()
{
    return Versions::program() + QLatin1Char('\n') + Versions::parts(EngineVersion::ask()) +
           QLatin1Char('\n');
}

// Why the options do not fit the window; empty when they do.
QString windowProblem(const ApplicationDescription& application, const QCommandLineParser& parser)
{
    const auto unfit = std::find_if(application.options.begin(), application.options.end(),
                                    [&](const ApplicationOption& own) {
                                        return own.needsNonInteractive && parser.isSet(own.option);
                                    });
    if (unfit == application.options.end()) {
        return QString();
    }
    const QString text = QCoreApplication::translate("ApplicationRequest", "--%1 needs --%2")
                             .arg(unfit->option.names().constFirst(), nonInteractiveOption);
    return unfit->windowHint.isEmpty() ? text : text + QStringLiteral("; ") + unfit->windowHint;
}

ApplicationTask windowTask(const ApplicationDescription& application,
                           const QCommandLineParser& parser)
{
    const ApplicationTask task = application.windowTask(parser);
    const QString problem =
        task.problem.isEmpty() ? windowProblem(application, parser) : task.problem;
    return problem.isEmpty() ? task : ApplicationTask{problem, {}};
}

ApplicationTask nonInteractiveTask(const ApplicationDescription& application,
                                   const QCommandLineParser& parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty()) {
        return {QCoreApplication::translate("ApplicationRequest", "no %1 given")
                    .arg(application.fileKind),
                {}};
    }
    if (files.contains(QString())) {
        return {QCoreApplication::translate("ApplicationRequest", "the name of a %1 is empty")
                    .arg(application.fileKind),
                {}};
    }
    return application.nonInteractiveTask(parser);
}

ApplicationRequest refusal(const QString& problem, const QStringList& words)
{
    const bool hasQtOption = std::any_of(words.begin(), words.end(), QtOptions::isOption);
    return {hasQtOption ? WindowSystem::Display : WindowSystem::None, false, {problem, {}}};
}

ApplicationRequest answer(const std::function<QString()>& makeText)
{
    const auto print = [makeText] {
        std::fputs(qPrintable(makeText()), stdout);
        return 0;
    };
    return {WindowSystem::None, true, {QString(), print}};
}

ApplicationRequest readOptions(const ApplicationDescription& application, const QStringList& words)
{
    const auto parser = std::make_shared<QCommandLineParser>();
    addOptions(*parser, application);
    if (!parser->parse(words)) {
        return refusal(parser->errorText(), words);
    }
    if (parser->isSet(QStringLiteral("help")) || parser->isSet(helpAllOption)) {
        return answer([&application, parser] { return helpText(application, *parser); });
    }
    if (parser->isSet(QStringLiteral("version"))) {
        return answer(versionText);
    }
    const bool isInteractive = !parser->isSet(nonInteractiveOption);
    const ApplicationTask task =
        isInteractive ? windowTask(application, *parser) : nonInteractiveTask(application, *parser);
    if (!task.problem.isEmpty()) {
        return refusal(task.problem, words);
    }
    return {isInteractive ? WindowSystem::Display : application.nonInteractiveSystem, false, task};
}

QString programVersion()
{
    return Versions::program() + QLatin1Char('\n');
}

// Of a program without a window.
ApplicationRequest consoleRequest(const ApplicationDescription& application,
                                  const QStringList& words)
{
    const QString first = words.value(1);
    if (first == QLatin1String("--version") || first == QLatin1String("-v")) {
        return answer(programVersion);
    }
    const SubcommandGroup group(QString(), application.consoleCommands, application.notes);
    const QStringList rest = words.mid(1);
    return {WindowSystem::None, true, {QString(), [group, rest] { return group.run(rest); }}};
}

} // namespace

ApplicationRequest ApplicationRequest::read(const ApplicationDescription& application,
                                            const QStringList& words)
{
    if (!application.consoleCommands.isEmpty()) {
        return consoleRequest(application, words);
    }
    const QString first = words.value(1);
    const auto group =
        std::find_if(application.commandGroups.begin(), application.commandGroups.end(),
                     [&first](const SubcommandGroup& each) { return each.name() == first; });
    if (group == application.commandGroups.end()) {
        return readOptions(application, words);
    }
    const QStringList rest = words.mid(2);
    return {WindowSystem::None, false, {QString(), [group, rest] { return group->run(rest); }}};
}
