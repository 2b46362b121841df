#include "CommandLine.h"

#include "ExportCommand.h"
#include "ViewerWindow.h"

#include <PictureOptions.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

namespace {

PictureOptions pictureOptions()
{
    return {QStringLiteral("The file to write: .png, .svg, or .csv for a table of all results. "
                           "Without it a .png beside the first result."),
            {1000, 900},
            100,
            10000};
}

QString defaultOutput(const QString& result)
{
    const QFileInfo file(result);
    return file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".png");
}

int showWindow(const QStringList& results)
{
    ViewerWindow window(results);
    window.show();
    return QApplication::exec();
}

ApplicationTask windowTask(const QCommandLineParser& parser)
{
    const QStringList results = parser.positionalArguments();
    return {QString(), [results] { return showWindow(results); }};
}

ApplicationTask exportTask(const QCommandLineParser& parser)
{
    const QStringList results = parser.positionalArguments();
    const QString output = PictureOptions::hasOutput(parser) ? PictureOptions::output(parser)
                                                             : defaultOutput(results.constFirst());
    const QSize size = PictureOptions::size(parser);
    return {pictureOptions().sizeProblem(parser),
            [results, output, size] { return exportResults(results, output, size); }};
}

} // namespace

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity = {QStringLiteral("postkest"), QString()};
    result.purpose = QStringLiteral("Shows what runs of solver components found: resistance, "
                                    "reactance and standing wave ratio over frequency.");
    result.exitCodes = QStringLiteral("0 written, 1 a result or the file to write is bad, 2 wrong "
                                      "command line.");
    result.nonInteractiveHelp = QStringLiteral("Write the charts into a file, without a window.");
    result.displayAlternative = QStringLiteral("writes charts without one");
    result.options = pictureOptions().options();
    result.fileKind = QStringLiteral("result");
    result.fileHelp = QStringLiteral("Results (*.csv).");
    result.fileSyntax = QStringLiteral("[result...]");
    result.windowTask = windowTask;
    result.nonInteractiveTask = exportTask;
    result.nonInteractiveSystem = WindowSystem::Offscreen;
    return result;
}
