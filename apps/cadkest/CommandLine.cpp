#include "CommandLine.h"

#include <QCommandLineParser>

#include <algorithm>
#include <optional>

namespace {

constexpr int leastSide = 16;
constexpr int greatestSide = 8192;

const QString nonInteractiveOption = QStringLiteral("non-interactive");
const QString tryOption = QStringLiteral("try-opengl");
const QString outputOption = QStringLiteral("output");
const QString sizeOption = QStringLiteral("size");
const QString viewOption = QStringLiteral("view");
const QString paletteOption = QStringLiteral("palette");

struct DirectionName
{
    const char* name;
    Direction direction;
};

constexpr DirectionName directionNames[] = {
    {"iso", Direction::Isometric},
    {"x", Direction::X},
    {"y", Direction::Y},
    {"z", Direction::Z},
};

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Shows a model's wires in three dimensions.\n\n"
                       "Exit code of --non-interactive: 0 the picture was made, 1 it was not,\n"
                       "2 the command line is wrong."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({nonInteractiveOption,
                      QStringLiteral("Make a picture (PNG) of the model, without a window.")});
    parser.addOption({outputOption,
                      QStringLiteral("The picture's file (default: MODEL.png beside the model)."),
                      QStringLiteral("file")});
    parser.addOption({sizeOption,
                      QStringLiteral("The picture's size in pixels (default: 1280x800)."),
                      QStringLiteral("WxH"), QStringLiteral("1280x800")});
    parser.addOption({viewOption,
                      QStringLiteral("Look from a corner (iso, the default), along an axis (x, y) "
                                     "or from above (z)."),
                      QStringLiteral("view"), QStringLiteral("iso")});
    parser.addOption({paletteOption, QStringLiteral("Colours: light (default) or dark."),
                      QStringLiteral("name"), QStringLiteral("light")});
    // The window asks this of another cadkest.
    QCommandLineOption tries(tryOption);
    tries.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(tries);
    parser.addPositionalArgument(QStringLiteral("model"), QStringLiteral("A model file (*.nec)."));
}

// Two whole numbers with an "x" between them.
std::optional<QSize> sizeOf(const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'), Qt::KeepEmptyParts, Qt::CaseInsensitive);
    bool hasWidth = false;
    bool hasHeight = false;
    const QSize size(sides.value(0).toInt(&hasWidth), sides.value(1).toInt(&hasHeight));
    const bool isGood = sides.size() == 2 && hasWidth && hasHeight &&
                        std::min(size.width(), size.height()) >= leastSide &&
                        std::max(size.width(), size.height()) <= greatestSide;
    return isGood ? std::make_optional(size) : std::nullopt;
}

std::optional<Direction> directionOf(const QString& text)
{
    for (const DirectionName& each : directionNames) {
        if (text == QLatin1String(each.name)) {
            return each.direction;
        }
    }
    return std::nullopt;
}

// Reads what says how the picture is to be made; why it cannot be, or empty.
QString readPicture(const QCommandLineParser& parser, CommandLine& result)
{
    const auto size = sizeOf(parser.value(sizeOption));
    const auto direction = directionOf(parser.value(viewOption));
    const QString palette = parser.value(paletteOption);
    if (!size) {
        return QStringLiteral("\"%1\" is no size: width x height, from %2 to %3 pixels")
            .arg(parser.value(sizeOption), QString::number(leastSide),
                 QString::number(greatestSide));
    }
    if (!direction) {
        return QStringLiteral("\"%1\" is no view: iso, x, y or z").arg(parser.value(viewOption));
    }
    if (palette != QLatin1String("light") && palette != QLatin1String("dark")) {
        return QStringLiteral("\"%1\" is no palette: light or dark").arg(palette);
    }
    result.output = parser.value(outputOption);
    if (parser.isSet(outputOption) &&
        !result.output.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        return QStringLiteral("\"%1\" is no name for a picture: it must end in .png")
            .arg(result.output);
    }
    result.size = *size;
    result.direction = *direction;
    result.isDark = palette == QLatin1String("dark");
    return QString();
}

// Why a window cannot be asked for like this; empty when it can.
QString windowComplaint(const QCommandLineParser& parser)
{
    for (const QString& option : {outputOption, sizeOption, viewOption, paletteOption}) {
        if (parser.isSet(option)) {
            return QStringLiteral("--%1 needs --%2").arg(option, nonInteractiveOption);
        }
    }
    return QString();
}

void readModel(const QCommandLineParser& parser, CommandLine& result)
{
    const QStringList models = parser.positionalArguments();
    const bool makesPicture = parser.isSet(nonInteractiveOption);
    if (models.size() > 1) {
        result.text = QStringLiteral("more than one model");
    } else if (makesPicture && models.value(0).isEmpty()) {
        result.text = QStringLiteral("no model given");
    } else {
        result.text = makesPicture ? readPicture(parser, result) : windowComplaint(parser);
    }
    result.model = models.value(0);
    if (result.text.isEmpty()) {
        result.request =
            makesPicture ? CommandLine::Request::MakePicture : CommandLine::Request::ShowWindow;
    }
}

// All but the help text.
CommandLine read(QCommandLineParser& parser, const QStringList& arguments)
{
    using Request = CommandLine::Request;
    CommandLine result;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        result.text = parser.errorText();
    } else if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        result.request = Request::ShowText;
    } else if (parser.isSet(QStringLiteral("version"))) {
        result.request = Request::ShowText;
        result.text = QStringLiteral("cadkest " CADKEST_VERSION "\n");
    } else if (arguments.mid(1) == QStringList{QStringLiteral("--") + tryOption}) {
        result.request = Request::TryHardware;
    } else {
        readModel(parser, result);
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
