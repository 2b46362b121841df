// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include "PictureCommand.h"
#include "ProbeCommand.h"
#include "WindowCommand.h"

#include <PictureOptions.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

const QString tryOption = QStringLiteral("try-opengl");
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

PictureOptions pictureOptions()
{
    return {QCoreApplication::translate(
                "CommandLine", "The picture's file (default: MODEL.png beside the model)."),
            {1280, 800},
            16,
            8192};
}

QVector<ApplicationOption> options()
{
    // The window asks this of another cadkest.
    QCommandLineOption tries(tryOption);
    tries.setFlags(QCommandLineOption::HiddenFromHelp);
    return pictureOptions().options() +
           QVector<ApplicationOption>{
               {{viewOption,
                 QCoreApplication::translate(
                     "CommandLine", "Look from a corner (iso, the default), along an axis (x, y) "
                                    "or from above (z)."),
                 QCoreApplication::translate("CommandLine", "view"), QStringLiteral("iso")},
                true,
                QString()},
               {{paletteOption,
                 QCoreApplication::translate("CommandLine", "Colours: light (default) or dark."),
                 QCoreApplication::translate("CommandLine", "name"), QStringLiteral("light")},
                true,
                QString()},
               {tries, false, QString()}};
}

QString countProblem(const QStringList& models)
{
    return models.size() > 1 ? QCoreApplication::translate("CommandLine", "more than one model")
                             : QString();
}

QString nameProblem(const QStringList& models)
{
    return models.value(0).isEmpty() ? QCoreApplication::translate("CommandLine", "no model given")
                                     : QString();
}

// Why there is no such view; empty when the direction has been set.
QString readDirection(const QString& text, Direction& direction)
{
    const auto* const row = std::find_if(
        std::begin(directionNames), std::end(directionNames),
        [&text](const DirectionName& each) { return text == QLatin1String(each.name); });
    if (row == std::end(directionNames)) {
        return QCoreApplication::translate("CommandLine", "\"%1\" is no view: iso, x, y or z")
            .arg(text);
    }
    direction = row->direction;
    return QString();
}

QString paletteProblem(const QString& name)
{
    return name == QLatin1String("light") || name == QLatin1String("dark")
               ? QString()
               : QCoreApplication::translate("CommandLine", "\"%1\" is no palette: light or dark")
                     .arg(name);
}

QString outputProblem(const QCommandLineParser& parser)
{
    const QString output = PictureOptions::output(parser);
    return !PictureOptions::hasOutput(parser) ||
                   output.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)
               ? QString()
               : QCoreApplication::translate("CommandLine",
                                             "\"%1\" is no name for a picture: it must end in .png")
                     .arg(output);
}

ApplicationTask pictureTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    PictureRequest request;
    for (const QString& problem :
         {countProblem(models), nameProblem(models), pictureOptions().sizeProblem(parser),
          readDirection(parser.value(viewOption), request.direction),
          paletteProblem(parser.value(paletteOption)), outputProblem(parser)}) {
        if (!problem.isEmpty()) {
            return {problem, {}};
        }
    }
    request.model = models.constFirst();
    request.output = PictureOptions::output(parser);
    request.size = PictureOptions::size(parser);
    request.isDark = parser.value(paletteOption) == QLatin1String("dark");
    return {QString(), [request] { return makePicture(request); }};
}

ApplicationTask windowTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    if (parser.optionNames() == QStringList(tryOption) && models.isEmpty()) {
        return {QString(), tryHardware};
    }
    const QString model = models.value(0);
    return {countProblem(models), [model] { return showWindow(model); }};
}

} // namespace

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity = {QStringLiteral("cadkest"), QStringLiteral("models/dipole.nec")};
    result.purpose =
        QCoreApplication::translate("CommandLine", "Shows a model's wires in three dimensions.");
    result.exitCodes =
        QCoreApplication::translate("CommandLine", "0 the picture was made, 1 it was not,\n"
                                                   "2 the command line is wrong.");
    result.nonInteractiveHelp = QCoreApplication::translate(
        "CommandLine", "Make a picture (PNG) of the model, without a window.");
    result.displayAlternative =
        QCoreApplication::translate("CommandLine", "makes a picture without one");
    result.options = options();
    result.fileKind = QCoreApplication::translate("CommandLine", "model");
    result.fileHelp = QCoreApplication::translate("CommandLine", "A model file (*.nec).");
    result.windowTask = windowTask;
    result.nonInteractiveTask = pictureTask;
    result.nonInteractiveSystem = WindowSystem::Offscreen;
    return result;
}
