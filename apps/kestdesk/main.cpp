#include "ApplicationIdentity.h"
#include "BatchSession.h"
#include "CommandLine.h"
#include "Component.h"
#include "Display.h"
#include "Environment.h"
#include "MachinesCommand.h"
#include "MachinesCopies.h"
#include "MainWindow.h"
#include "OptionsCommand.h"
#include "Services.h"
#include "StopSignals.h"
#include "SuiteFolders.h"

#include <MarkedFolders.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

constexpr int exitRefused = 2;

QStringList wordsOf(int argc, char* argv[])
{
    QStringList result;
    for (int i = 0; i < argc; ++i) {
        result.append(QString::fromLocal8Bit(argv[i]));
    }
    return result;
}

int refuse(const QString& text)
{
    std::fprintf(stderr, "kestdesk: %s\nTry \"kestdesk --help\".\n", qPrintable(text));
    return exitRefused;
}

// What programs of the suite have left behind that were killed.
void clearAfterOthers()
{
    MarkedFolders::removeLeft();
    MachinesCopies(qEnvironmentVariable("KEST_USER_HOME")).removeLeft();
}

int showWindow(const CommandLine& commandLine)
{
    clearAfterOthers();
    MainWindow window;
    if (commandLine.component != nullptr) {
        window.setComponent(*commandLine.component);
    }
    StopSignals::watch(&window, [&window] { window.quit(); });
    window.show();
    if (!commandLine.models.isEmpty()) {
        const QString model = commandLine.models.constFirst();
        QTimer::singleShot(0, &window, [&window, model] { window.openModel(model); });
    }
    return QApplication::exec();
}

int follow(const CommandLine& commandLine)
{
    switch (commandLine.request) {
    case CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case CommandLine::Request::EditOptions:
        return OptionsCommand::run(commandLine.words);
    case CommandLine::Request::UseMachines:
        return MachinesCommand::run(commandLine.words);
    case CommandLine::Request::RunModels:
        clearAfterOthers();
        return BatchSession(*commandLine.component, commandLine.options, commandLine.models).exec();
    case CommandLine::Request::ShowWindow:
        return showWindow(commandLine);
    case CommandLine::Request::Refuse:
        break;
    }
    return refuse(commandLine.text);
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isWindow = CommandLine::asksForWindow(wordsOf(argc, argv));
    if (isWindow && !Display::exists()) {
        return refuse(QStringLiteral("there is no display for the window; --non-interactive runs "
                                     "models in this terminal"));
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const std::unique_ptr<QCoreApplication> application =
        isWindow ? std::make_unique<QApplication>(argc, argv)
                 : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestdesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTDESK_VERSION));
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    const CommandLine commandLine = CommandLine::parsed(QCoreApplication::arguments());
    const QString problem = SuiteFolders::problem();
    if (!problem.isEmpty() && commandLine.request != CommandLine::Request::ShowText) {
        return refuse(problem);
    }
    Environment::complete();
    const Services services({QStringLiteral("kestdesk"), QStringLiteral("models/dipole.nec")},
                            !isWindow);
    return follow(commandLine);
}
