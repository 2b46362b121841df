#include "CommandLine.h"
#include "PictureCommand.h"
#include "ProbeCommand.h"
#include "WindowCommand.h"

#include <ApplicationIdentity.h>
#include <ApplicationStart.h>
#include <Complaints.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <WriteFailures.h>

#include <ProgramArguments.h>

#include <QApplication>

#include <cstdio>

namespace {

using ApplicationStart::Surroundings;

Surroundings surroundingsFor(const QStringList& words)
{
    switch (CommandLine::requestOf(words)) {
    case CommandLine::Request::ShowWindow:
    case CommandLine::Request::TryHardware:
        return Surroundings::Window;
    case CommandLine::Request::MakePicture:
        return Surroundings::Picture; // whatever display there is or is not
    case CommandLine::Request::ShowText:
        return Surroundings::Terminal;
    case CommandLine::Request::Refuse:
        break;
    }
    return ApplicationStart::surroundingsOfMistake(words);
}

int refuse(const QString& text, const QString& hint = QString())
{
    Complaints::printRefusal(text, hint);
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("cadkest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CADKEST_VERSION));
    suite::ProgramArguments arguments(argc, argv);
    const Surroundings surroundings = surroundingsFor(arguments.words());
    const bool isWindow = surroundings == Surroundings::Window;
    if (!isWindow) {
        WriteFailures::report();
    }
    const QString problem = ApplicationStart::problem(
        surroundings, QStringLiteral("--non-interactive makes a picture without one"));
    if (!problem.isEmpty()) {
        return refuse(problem);
    }
    const auto application = ApplicationStart::make(surroundings, arguments);
    const Services services({QStringLiteral("cadkest"), QStringLiteral("models/dipole.nec")},
                            !isWindow);
    const CommandLine commandLine = CommandLine::parse(arguments.words());
    const QString folderProblem = SuiteFolders::problem();
    if (!folderProblem.isEmpty() && commandLine.request != CommandLine::Request::ShowText) {
        return refuse(folderProblem);
    }
    switch (commandLine.request) {
    case CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case CommandLine::Request::Refuse:
        return refuse(commandLine.text, arguments.hint());
    case CommandLine::Request::MakePicture:
        return makePicture(commandLine);
    case CommandLine::Request::TryHardware:
        return tryHardware();
    case CommandLine::Request::ShowWindow:
        break;
    }
    return showWindow(commandLine);
}
