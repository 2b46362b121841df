// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include "BatchSession.h"
#include "Component.h"
#include "Environment.h"
#include "Leftovers.h"
#include "MachinesCommand.h"
#include "NearWord.h"
#include "OptionsCommand.h"
#include "RunOptionWords.h"
#include "RunsCommand.h"
#include "WindowCommand.h"

#include <PlainText.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

const QString componentOption = QStringLiteral("component");
const QString jsonOption = QStringLiteral("json");
const QString jobsOption = QStringLiteral("jobs");
constexpr int mostJobs = 1000;

QVector<ApplicationOption> options()
{
    QVector<ApplicationOption> result = {
        {{componentOption,
          Texts::tr("The component to run: %1. Without it, runkest.").arg(Component::names()),
          QStringLiteral("name"), QStringLiteral("runkest")},
         false,
         QString()}};
    for (const RunOptionWord& row : RunOptionWords::rows()) {
        const QString help =
            Texts::tr("%1 For %2.").arg(RunOptionWords::shown(row), Component::names(row.option));
        result.append(
            {{QLatin1String(row.word), help}, true, Texts::tr("the window has a box for it")});
    }
    result.append({{jobsOption, Texts::tr("Run up to N models at the same time."),
                    QStringLiteral("N"), QStringLiteral("1")},
                   true,
                   Texts::tr("the window has a setting for it")});
    result.append({{jsonOption, Texts::tr("At the end, the runs as JSON on standard output; all "
                                          "else goes to standard error.")},
                   true,
                   QString()});
    return result;
}

QString componentProblem(const QString& name)
{
    return name == QLatin1String("adaptkest")
               ? Texts::tr("adaptkest is started by runkest and not by itself; its launch "
                           "options are set with \"kestdesk options\"")
               : Texts::tr("\"%1\" is no name of a component; the components are %2")
                     .arg(name, Component::names());
}

QString runOptionProblem(const QCommandLineParser& parser, const Component& component)
{
    for (const RunOptionWord& row : RunOptionWords::rows()) {
        if (parser.isSet(QLatin1String(row.word)) && !(component.options & row.option)) {
            return Texts::tr("--%1 has no meaning for %2, only for %3")
                .arg(QLatin1String(row.word), QLatin1String(component.name),
                     Component::names(row.option));
        }
    }
    return QString();
}

// Why the component cannot be run; empty when it can.
QString runProblem(const QCommandLineParser& parser)
{
    const QString name = parser.value(componentOption);
    const Component* const component = Component::find(name);
    return component != nullptr ? runOptionProblem(parser, *component) : componentProblem(name);
}

// A command stands first on the command line. Where a word is taken for a model that is not there,
// a command may have been meant; which one, as a question. Empty when there is none.
QString commandHint(const QStringList& models)
{
    const QString word = models.value(0);
    if (word.isEmpty() || QFileInfo::exists(word)) {
        return QString();
    }
    const QString command =
        NearWord::of(word, {OptionsCommand::group().name(), MachinesCommand::group().name()});
    return command.isEmpty() ? QString() : Texts::tr("did you mean \"kestdesk %1\"?").arg(command);
}

QString withHint(const QString& problem, const QString& hint)
{
    return hint.isEmpty() ? problem : problem + QStringLiteral("; ") + hint;
}

QString sentence(QString text)
{
    return text.isEmpty() ? text : text.replace(0, 1, text.at(0).toUpper());
}

// A word that is nearly a command is no problem of a single model: the window says it.
QString modelsProblem(const QCommandLineParser& parser)
{
    const QString problem = runProblem(parser);
    const QStringList models = parser.positionalArguments();
    const QString hint = commandHint(models);
    return problem.isEmpty() && !hint.isEmpty()
               ? withHint(Texts::tr("there is no model %1").arg(suite::excerpt(models.first())),
                          hint)
               : problem;
}

ApplicationTask windowTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    const QString hint = commandHint(models);
    const Component* const component =
        parser.isSet(componentOption) ? Component::find(parser.value(componentOption)) : nullptr;
    const WindowStart start = {models, sentence(hint), component};
    const QString problem = models.size() > 1 ? modelsProblem(parser) : runProblem(parser);
    return {problem, [start] { return showWindow(start); }};
}

QString jobsProblem(const QCommandLineParser& parser)
{
    const QString typed = parser.value(jobsOption);
    const int jobs = typed.toInt();
    return jobs >= 1 && jobs <= mostJobs
               ? QString()
               : Texts::tr("--jobs takes a number from 1 to %1, and not \"%2\"")
                     .arg(mostJobs)
                     .arg(suite::excerpt(typed));
}

ApplicationTask batchTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    const Component* const component = Component::find(parser.value(componentOption));
    common_RunWrapper::RunOptions runOptions;
    for (const RunOptionWord& row : RunOptionWords::rows()) {
        runOptions.setFlag(row.option, parser.isSet(QLatin1String(row.word)));
    }
    const bool isJson = parser.isSet(jsonOption);
    const int jobs = parser.value(jobsOption).toInt();
    const QString problem = jobsProblem(parser);
    return {problem.isEmpty() ? modelsProblem(parser) : problem,
            [models, component, runOptions, isJson, jobs] {
                Leftovers::remove();
                BatchSession session(*component, runOptions, models);
                session.setJobs(jobs);
                session.setJson(isJson);
                return session.exec();
            }};
}

void prepare()
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    Environment::complete();
}

} // namespace

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity = {QStringLiteral("kestdesk"), QStringLiteral("models/dipole.nec")};
    result.purpose = Texts::tr(
        "Opens a window that runs the suite's solver components on models. With --non-interactive "
        "runs a component on each model in this terminal, with the user's launch options, and "
        "shows what it prints.");
    result.exitCodes = Texts::tr("0 all models valid, 1 fault, 2 could not start, 130 stopped.");
    result.notes = Texts::tr(
        "\nCtrl+C stops the component, a second one ends at once.\n\n"
        "Environment:\n"
        "  KEST_HOME       the installation with the components; without it, the one beside "
        "kestdesk\n"
        "  KEST_USER_HOME  where the user's kest.ini and machines.kest are; without it, the folder "
        "kest\n"
        "                  among the user's settings\n"
        "  KEST_SSH        the program to reach hosts with; without it, ssh\n"
        "  KEST_SCRIPT     a file to record commands in\n"
        "  NO_COLOR        set to anything: no colours");
    result.nonInteractiveHelp = Texts::tr("Run in this terminal, without a window.");
    result.displayAlternative = Texts::tr("runs models in this terminal");
    result.options = options();
    result.fileKind = QStringLiteral("model");
    result.fileHelp = Texts::tr("Model files (*.nec).");
    result.fileSyntax = QStringLiteral("[model...]");
    result.commandGroups = {OptionsCommand::group(), MachinesCommand::group(),
                            RunsCommand::group()};
    result.prepare = prepare;
    result.windowTask = windowTask;
    result.nonInteractiveTask = batchTask;
    return result;
}
