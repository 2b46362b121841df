#include "CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int leastSide = 100;
constexpr int mostSide = 10000;

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Shows what runs of solver components found: resistance, reactance and standing wave ratio "
        "over frequency.\n\nExit code of --non-interactive: 0 written, 1 a result or the file to "
        "write is bad, 2 wrong command line."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QStringLiteral("non-interactive"),
                      QStringLiteral("Write the charts into a file, without a window.")});
    parser.addOption({QStringLiteral("output"),
                      QStringLiteral("The file to write: .png, .svg, or .csv for a table of all "
                                     "results. Without it a .png beside the first result."),
                      QStringLiteral("file")});
    parser.addOption({QStringLiteral("size"), QStringLiteral("Of the picture, in pixels."),
                      QStringLiteral("WIDTHxHEIGHT"), QStringLiteral("1000x900")});
    parser.addPositionalArgument(QStringLiteral("result"), QStringLiteral("Results (*.csv)."),
                                 QStringLiteral("[result...]"));
}

// Invalid when the text is no size.
QSize sizeOf(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,6})x(\\d{1,6})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const bool isUsable = std::min(size.width(), size.height()) >= leastSide &&
                          std::max(size.width(), size.height()) <= mostSide;
    return isUsable ? size : QSize();
}

QString defaultOutput(const QString& result)
{
    const QFileInfo file(result);
    return file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".png");
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
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        result.request = Request::ShowText;
        return result;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        result.request = Request::ShowText;
        result.text = QStringLiteral("postkest " POSTKEST_VERSION "\n");
        return result;
    }
    result.results = parser.positionalArguments();
    if (!parser.isSet(QStringLiteral("non-interactive"))) {
        result.request = Request::ShowWindow;
        return result;
    }
    result.size = sizeOf(parser.value(QStringLiteral("size")));
    if (result.results.isEmpty()) {
        result.text = QStringLiteral("no result given");
    } else if (!result.size.isValid()) {
        result.text = QStringLiteral("\"%1\" is no size from %2x%2 to %3x%3")
                          .arg(parser.value(QStringLiteral("size")))
                          .arg(leastSide)
                          .arg(mostSide);
    } else {
        result.request = Request::WriteFile;
        result.output = parser.isSet(QStringLiteral("output"))
                            ? parser.value(QStringLiteral("output"))
                            : defaultOutput(result.results.first());
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
