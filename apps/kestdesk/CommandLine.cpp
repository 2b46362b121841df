#include "CommandLine.h"

#include "OptionsCommand.h"

#include <QCommandLineParser>

namespace {

const QString nonInteractiveOption = QStringLiteral("non-interactive");
const QString componentOption = QStringLiteral("component");

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Runs a solver component of the suite on each model and shows what it prints.\n\n"
        "Exit code: 0 all models valid, 1 fault, 2 could not start, 130 stopped.\n"
        "Ctrl+C stops the component, a second one ends at once.\n\n"
        "Environment:\n"
        "  KEST_HOME       the installation with the components\n"
        "  KEST_USER_HOME  where the user's kest.ini is\n"
        "  KEST_SCRIPT     a file to record commands in\n"
        "  NO_COLOR        set to anything: no colours"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(
        {nonInteractiveOption, QStringLiteral("Run in this terminal, without a window.")});
    parser.addOption({componentOption,
                      QStringLiteral("The component to run: runkest (default), prekest."),
                      QStringLiteral("name"), QStringLiteral("runkest")});
    parser.addPositionalArgument(QStringLiteral("model"), QStringLiteral("Model files (*.nec)."),
                                 QStringLiteral("model..."));
}

// Why the command line cannot be followed; empty when it can.
QString complaint(const QCommandLineParser& parser)
{
    if (!parser.isSet(nonInteractiveOption)) {
        return QStringLiteral("there is no window yet, so --non-interactive is needed");
    }
    if (parser.positionalArguments().isEmpty()) {
        return QStringLiteral("no model given");
    }
    const QString name = parser.value(componentOption);
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\'))) {
        return QStringLiteral("\"%1\" is no name of a component").arg(name);
    }
    return QString();
}

} // namespace

CommandLine CommandLine::parsed(const QStringList& arguments)
{
    CommandLine result;
    if (arguments.value(1) == QLatin1String("options")) {
        result.request = Request::EditOptions;
        result.optionWords = arguments.mid(2);
        return result;
    }
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        result.text = parser.errorText();
        return result;
    }
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        result.request = Request::ShowText;
        result.text = parser.helpText() + QLatin1Char('\n') + OptionsCommand::usage();
    } else if (parser.isSet(QStringLiteral("version"))) {
        result.request = Request::ShowText;
        result.text = QStringLiteral("kestdesk " KESTDESK_VERSION "\n");
    } else {
        result.text = complaint(parser);
        result.request = result.text.isEmpty() ? Request::RunModels : Request::Refuse;
        result.component = parser.value(componentOption);
        result.models = parser.positionalArguments();
    }
    return result;
}
