// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include "CheckCommand.h"
#include "EditorWindow.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

const QString lineOption = QStringLiteral("line");

int showWindow(const QString& model, int line)
{
    EditorWindow window(model);
    window.show();
    if (line > 0) {
        window.goToLine(line);
    }
    return QApplication::exec();
}

ApplicationTask windowTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    if (models.size() > 1) {
        return {QCoreApplication::translate("CommandLine", "one model at a time in a window"), {}};
    }
    const QString text = parser.value(lineOption);
    const int line = text.toInt();
    if (parser.isSet(lineOption) && (line < 1 || models.isEmpty())) {
        return {models.isEmpty()
                    ? QCoreApplication::translate("CommandLine", "--line needs a model")
                    : QCoreApplication::translate("CommandLine",
                                                  "--line takes a number from 1 on and not '%1'")
                          .arg(text),
                {}};
    }
    const QString model = models.value(0);
    return {QString(), [model, line] { return showWindow(model, line); }};
}

ApplicationTask checkTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    if (parser.isSet(lineOption)) {
        return {QCoreApplication::translate("CommandLine", "--line is for the window"), {}};
    }
    return {QString(), [models] { return checkModels(models); }};
}

} // namespace

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity = {QStringLiteral("editkest"), QStringLiteral("models/dipole.nec")};
    result.purpose = QCoreApplication::translate(
        "CommandLine", "Edits models and checks them while they are edited.");
    result.exitCodes =
        QCoreApplication::translate("CommandLine", "0 no errors, 1 errors, 2 wrong command line.");
    result.nonInteractiveHelp = QCoreApplication::translate(
        "CommandLine", "Check the models as prekest does, without a window.");
    result.displayAlternative =
        QCoreApplication::translate("CommandLine", "checks models in this terminal");
    result.options = {{QCommandLineOption(lineOption,
                                          QCoreApplication::translate(
                                              "CommandLine", "Go to that line of the model."),
                                          QCoreApplication::translate("CommandLine", "number")),
                       false, QString()}};
    result.fileKind = QCoreApplication::translate("CommandLine", "model");
    result.fileHelp = QCoreApplication::translate("CommandLine", "Model (*.nec).");
    result.fileSyntax = QCoreApplication::translate("CommandLine", "[model...]");
    result.windowTask = windowTask;
    result.nonInteractiveTask = checkTask;
    return result;
}
