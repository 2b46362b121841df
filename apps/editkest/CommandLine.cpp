#include "CommandLine.h"

#include <QCommandLineParser>

namespace {

const QString nonInteractiveOption = QStringLiteral("non-interactive");

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Edits models and checks them while they are edited.\n\nExit code of "
                       "--non-interactive: 0 no errors, 1 errors, 2 wrong command line."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({nonInteractiveOption,
                      QStringLiteral("Check the models as prekest does, without a window.")});
    parser.addPositionalArgument(QStringLiteral("model"), QStringLiteral("Model (*.nec)."),
                                 QStringLiteral("[model...]"));
}

// All but the help text.
CommandLine read(QCommandLineParser& parser, const QStringList& arguments)
{
    using Request = CommandLine::Request;
    CommandLine result;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        result.text = parser.errorText();
        return result;
    }
    result.models = parser.positionalArguments();
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        result.request = Request::ShowText;
    } else if (parser.isSet(QStringLiteral("version"))) {
        result.request = Request::ShowText;
        result.text = QStringLiteral("editkest " EDITKEST_VERSION "\n");
    } else if (!parser.isSet(nonInteractiveOption) && result.models.size() <= 1) {
        result.request = Request::ShowWindow;
    } else if (!parser.isSet(nonInteractiveOption)) {
        result.text = QStringLiteral("one model at a time in a window");
    } else if (result.models.isEmpty()) {
        result.text = QStringLiteral("no model given");
    } else {
        result.request = Request::CheckModels;
    }
    return result;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    CommandLine result = read(parser, arguments);
    if (result.request == Request::ShowText && result.text.isEmpty()) {
        result.text = parser.helpText();
    }
    return result;
}

CommandLine::Request CommandLine::requestOf(const QStringList& arguments)
{
    QCommandLineParser parser;
    return read(parser, arguments).request;
}
