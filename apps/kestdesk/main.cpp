#include "ApplicationIdentity.h"
#include "ApplicationStart.h"
#include "BatchSession.h"
#include "CommandLine.h"
#include "Complaints.h"
#include "Component.h"
#include "Environment.h"
#include "MachinesCommand.h"
#include "MachinesCopies.h"
#include "MainWindow.h"
#include "OptionsCommand.h"
#include "Services.h"
#include "StopSignals.h"
#include "SuiteFolders.h"

#include <MarkedFolders.h>

#include <ProgramArguments.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

constexpr int exitRefused = 2;

int refuse(const QString& text, const QString& hint = QString())
{
    Complaints::printRefusal(text, hint);
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

int follow(const CommandLine& commandLine, const QString& hint)
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
    return refuse(commandLine.text, hint);
}

} // namespace

int main(int argc, char* argv[])
{
    using ApplicationStart::Surroundings;
    QCoreApplication::setApplicationName(QStringLiteral("kestdesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTDESK_VERSION));
    suite::ProgramArguments arguments(argc, argv);
    const bool isWindow = CommandLine::asksForWindow(arguments.words());
    const Surroundings surroundings = isWindow ? Surroundings::Window : Surroundings::Terminal;
    const QString problem = ApplicationStart::problem(
        surroundings, QStringLiteral("--non-interactive runs models in this terminal"));
    if (!problem.isEmpty()) {
        return refuse(problem);
    }
    const auto application = ApplicationStart::make(surroundings, arguments);
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    const CommandLine commandLine = CommandLine::parse(arguments.words());
    const QString folderProblem = SuiteFolders::problem();
    if (!folderProblem.isEmpty() && commandLine.request != CommandLine::Request::ShowText) {
        return refuse(folderProblem);
    }
    Environment::complete();
    const Services services({QStringLiteral("kestdesk"), QStringLiteral("models/dipole.nec")},
                            !isWindow);
    return follow(commandLine, arguments.hint());
}
