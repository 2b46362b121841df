#include "CommandLine.h"

#include "Component.h"
#include "MachinesCommand.h"
#include "OptionsCommand.h"

#include <QCommandLineParser>

#include <algorithm>

namespace {

const QString nonInteractiveOption = QStringLiteral("non-interactive");
const QString componentOption = QStringLiteral("component");

struct RunOptionWord
{
    const char* word;
    common_RunWrapper::RunOption option;
    const char* meaning;
};

// clang-format off
constexpr RunOptionWord runOptionWords[] = {
    {"parallel", common_RunWrapper::Parallel, "Run in parallel on the hosts of the machines file."},
    {"remote",   common_RunWrapper::Remote,   "Run on the remote host of the launch options."},
    {"farm-out", common_RunWrapper::FarmOut,  "Farm the optimiser's runs out to the hosts of the machines file."},
};
// clang-format on

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Opens a window that runs the suite's solver components on models. With --non-interactive "
        "runs a component on each model in this terminal, with the user's launch options, and "
        "shows what it prints.\n\n"
        "Exit code of --non-interactive: 0 all models valid, 1 fault, 2 could not start, 130 "
        "stopped.\n"
        "Ctrl+C stops the component, a second one ends at once.\n\n"
        "Environment:\n"
        "  KEST_HOME       the installation with the components; without it, the one beside "
        "kestdesk\n"
        "  KEST_USER_HOME  where the user's kest.ini and machines.kest are; without it, the folder "
        "kest\n"
        "                  among the user's settings\n"
        "  KEST_SSH        the program to reach hosts with; without it, ssh\n"
        "  KEST_SCRIPT     a file to record commands in\n"
        "  NO_COLOR        set to anything: no colours"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(
        {nonInteractiveOption, QStringLiteral("Run in this terminal, without a window.")});
    parser.addOption(
        {componentOption,
         QStringLiteral("The component to run: %1. Without it, runkest.").arg(Component::names()),
         QStringLiteral("name"), QStringLiteral("runkest")});
    for (const RunOptionWord& row : runOptionWords) {
        parser.addOption({QLatin1String(row.word),
                          QStringLiteral("%1 For %2.")
                              .arg(QLatin1String(row.meaning), Component::names(row.option))});
    }
    parser.addPositionalArgument(QStringLiteral("model"), QStringLiteral("Model files (*.nec)."),
                                 QStringLiteral("[model...]"));
}

QString componentComplaint(const QString& name)
{
    return name == QLatin1String("adaptkest")
               ? QStringLiteral("adaptkest is started by runkest and not by itself; its launch "
                                "options are set with \"kestdesk options\"")
               : QStringLiteral("\"%1\" is no name of a component; the components are %2")
                     .arg(name, Component::names());
}

QString runOptionComplaint(const QCommandLineParser& parser, const Component& component)
{
    for (const RunOptionWord& row : runOptionWords) {
        if (parser.isSet(QLatin1String(row.word)) && !(component.options & row.option)) {
            return QStringLiteral("--%1 has no meaning for %2, only for %3")
                .arg(QLatin1String(row.word), QLatin1String(component.name),
                     Component::names(row.option));
        }
    }
    return QString();
}

// Why the command line cannot be followed; empty when it can.
QString complaint(const QCommandLineParser& parser)
{
    const bool isBatch = parser.isSet(nonInteractiveOption);
    const int modelCount = parser.positionalArguments().size();
    if (isBatch && modelCount == 0) {
        return QStringLiteral("no model given");
    }
    if (!isBatch && modelCount > 1) {
        return QStringLiteral("the window takes one model; --non-interactive runs several");
    }
    const QString name = parser.value(componentOption);
    const Component* const component = Component::find(name);
    return component ? runOptionComplaint(parser, *component) : componentComplaint(name);
}

// Why the window cannot follow the command line: what it is to do is chosen in it.
QString windowComplaint(const QCommandLineParser& parser)
{
    for (const RunOptionWord& row : runOptionWords) {
        if (parser.isSet(QLatin1String(row.word))) {
            return QStringLiteral("--%1 needs --non-interactive; the window has a box for it")
                .arg(QLatin1String(row.word));
        }
    }
    return QString();
}

CommandLine run(const QCommandLineParser& parser)
{
    CommandLine result;
    result.text = complaint(parser);
    if (!parser.isSet(nonInteractiveOption) && result.text.isEmpty()) {
        result.text = windowComplaint(parser);
    }
    if (!result.text.isEmpty()) {
        return result;
    }
    result.models = parser.positionalArguments();
    if (!parser.isSet(nonInteractiveOption)) {
        result.request = CommandLine::Request::ShowWindow;
        result.component = parser.isSet(componentOption)
                               ? Component::find(parser.value(componentOption))
                               : nullptr;
        return result;
    }
    result.request = CommandLine::Request::RunModels;
    result.component = Component::find(parser.value(componentOption));
    for (const RunOptionWord& row : runOptionWords) {
        result.options.setFlag(row.option, parser.isSet(QLatin1String(row.word)));
    }
    return result;
}

CommandLine shown(const QString& text)
{
    CommandLine result;
    result.request = CommandLine::Request::ShowText;
    result.text = text;
    return result;
}

CommandLine::Request commandOf(const QString& word)
{
    if (word == QLatin1String("options")) {
        return CommandLine::Request::EditOptions;
    }
    return word == QLatin1String("machines") ? CommandLine::Request::UseMachines
                                             : CommandLine::Request::Refuse;
}

bool isAnySet(const QCommandLineParser& parser, const QStringList& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&parser](const QString& name) { return parser.isSet(name); });
}

} // namespace

bool CommandLine::asksForWindow(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    return commandOf(arguments.value(1)) == Request::Refuse && parser.parse(arguments) &&
           !isAnySet(parser, {QStringLiteral("help"), QStringLiteral("help-all"),
                              QStringLiteral("version")}) &&
           run(parser).request == Request::ShowWindow;
}

CommandLine CommandLine::parse(const QStringList& arguments)
{
    CommandLine result;
    result.request = commandOf(arguments.value(1));
    if (result.request != Request::Refuse) {
        result.words = arguments.mid(2);
        return result;
    }
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        result.text = parser.errorText();
        return result;
    }
    if (isAnySet(parser, {QStringLiteral("help"), QStringLiteral("help-all")})) {
        return shown(parser.helpText() + QLatin1Char('\n') + OptionsCommand::usage() +
                     QLatin1Char('\n') + MachinesCommand::usage());
    }
    if (parser.isSet(QStringLiteral("version"))) {
        return shown(QStringLiteral("kestdesk " KESTDESK_VERSION "\n"));
    }
    return run(parser);
}
