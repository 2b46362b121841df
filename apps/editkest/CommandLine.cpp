#include "CommandLine.h"

#include "CheckCommand.h"
#include "EditorWindow.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

int showWindow(const QString& model)
{
    EditorWindow window(model);
    window.show();
    return QApplication::exec();
}

ApplicationTask windowTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    if (models.size() > 1) {
        return {QStringLiteral("one model at a time in a window"), {}};
    }
    const QString model = models.value(0);
    return {QString(), [model] { return showWindow(model); }};
}

ApplicationTask checkTask(const QCommandLineParser& parser)
{
    const QStringList models = parser.positionalArguments();
    return {QString(), [models] { return checkModels(models); }};
}

} // namespace

ApplicationDescription CommandLine::application()
{
    ApplicationDescription result;
    result.identity = {QStringLiteral("editkest"), QStringLiteral("models/dipole.nec")};
    result.purpose = QStringLiteral("Edits models and checks them while they are edited.");
    result.exitCodes = QStringLiteral("0 no errors, 1 errors, 2 wrong command line.");
    result.nonInteractiveHelp =
        QStringLiteral("Check the models as prekest does, without a window.");
    result.displayAlternative = QStringLiteral("checks models in this terminal");
    result.fileKind = QStringLiteral("model");
    result.fileHelp = QStringLiteral("Model (*.nec).");
    result.fileSyntax = QStringLiteral("[model...]");
    result.windowTask = windowTask;
    result.nonInteractiveTask = checkTask;
    return result;
}
