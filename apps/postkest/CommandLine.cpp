// SPDX-License-Identifier: MIT
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
    return {QCoreApplication::translate(
                "CommandLine", "The file to write: .png, .svg, or .csv for a table of all results. "
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
    result.purpose = QCoreApplication::translate(
        "CommandLine", "Shows what runs of solver components found: resistance, "
                       "reactance and standing wave ratio over frequency.");
    result.exitCodes = QCoreApplication::translate(
        "CommandLine", "0 written, 1 a result or the file to write is bad, 2 wrong "
                       "command line.");
    result.nonInteractiveHelp = QCoreApplication::translate(
        "CommandLine", "Write the charts into a file, without a window.");
    result.displayAlternative =
        QCoreApplication::translate("CommandLine", "writes charts without one");
    result.options = pictureOptions().options();
    result.fileKind = QCoreApplication::translate("CommandLine", "result");
    result.fileHelp = QCoreApplication::translate("CommandLine", "Results (*.csv).");
    result.fileSyntax = QCoreApplication::translate("CommandLine", "[result...]");
    result.windowTask = windowTask;
    result.nonInteractiveTask = exportTask;
    result.nonInteractiveSystem = WindowSystem::Offscreen;
    return result;
}
