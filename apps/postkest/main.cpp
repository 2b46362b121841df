#include "CommandLine.h"
#include "Export.h"
#include "ResultView.h"
#include "ViewerWindow.h"

#include <ApplicationIdentity.h>
#include <ApplicationStart.h>
#include <Complaints.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <ProgramArguments.h>
#include <TerminalStream.h>
#include <VisibleText.h>

#include <QApplication>

#include <cstdio>

namespace {

using ApplicationStart::Surroundings;

constexpr int exitBadFile = 1;
constexpr int exitBadCommandLine = 2;

Surroundings surroundingsFor(const QStringList& words)
{
    switch (CommandLine::requestOf(words)) {
    case CommandLine::Request::ShowWindow:
        return Surroundings::Window;
    case CommandLine::Request::WriteFile:
        return Surroundings::Picture;
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
    return exitBadCommandLine;
}

// As it is for scripts, and to be read on a terminal.
void printName(const QString& file)
{
    const QString shown = suite::isTerminal(stdout) ? suite::visibleText(file) : file;
    std::printf("%s\n", qPrintable(shown));
}

int writeFile(const CommandLine& commandLine)
{
    QVector<Result> results;
    for (const QString& path : commandLine.results) {
        results.append(Result::read(path));
        if (!results.last().error.isEmpty()) {
            Complaints::print(QStringLiteral("%1: %2").arg(path, results.last().error));
            return exitBadFile;
        }
    }
    ResultView view;
    view.setResults(results);
    view.layOut(commandLine.size);
    const QString error = Export::write(commandLine.output, view, results);
    if (!error.isEmpty()) {
        Complaints::print(error);
        return exitBadFile;
    }
    printName(commandLine.output);
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("postkest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(POSTKEST_VERSION));
    suite::ProgramArguments arguments(argc, argv);
    const Surroundings surroundings = surroundingsFor(arguments.words());
    const QString problem = ApplicationStart::problem(
        surroundings, QStringLiteral("--non-interactive writes charts without one"));
    if (!problem.isEmpty()) {
        return refuse(problem);
    }
    const auto application = ApplicationStart::make(surroundings, arguments);
    const Services services({QStringLiteral("postkest"), QString()},
                            surroundings != Surroundings::Window);
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
    case CommandLine::Request::WriteFile:
        return writeFile(commandLine);
    case CommandLine::Request::ShowWindow:
        break;
    }
    ViewerWindow window(commandLine.results);
    window.show();
    return QApplication::exec();
}
