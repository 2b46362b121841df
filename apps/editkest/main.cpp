#include "CommandLine.h"
#include "EditorWindow.h"

#include <ApplicationIdentity.h>
#include <ApplicationStart.h>
#include <Complaints.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <FindingPrinter.h>
#include <MarkerPrinter.h>
#include <ModelFile.h>
#include <Preprocessor.h>

#include <ProgramArguments.h>

#include <QApplication>

#include <cstdio>

namespace {

using ApplicationStart::Surroundings;

constexpr int exitErrors = 1;
constexpr int exitBadCommandLine = 2;

// True when there is nothing against the model.
bool check(const QString& model)
{
    const suite::ModelFile file(model);
    const suite::Preprocessor preprocessor(file);
    suite::MarkerPrinter printer;
    suite::FindingPrinter(printer, file.name()).print(preprocessor.findings());
    return !preprocessor.findings().hasErrors() && !preprocessor.findings().hasFatalErrors();
}

int checkAll(const QStringList& models)
{
    bool isGood = true;
    for (const QString& model : models) {
        isGood = check(model) && isGood;
    }
    return isGood ? 0 : exitErrors;
}

Surroundings surroundingsFor(const QStringList& words)
{
    switch (CommandLine::requestOf(words)) {
    case CommandLine::Request::ShowWindow:
        return Surroundings::Window;
    case CommandLine::Request::CheckModels:
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

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("editkest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EDITKEST_VERSION));
    suite::ProgramArguments arguments(argc, argv);
    const Surroundings surroundings = surroundingsFor(arguments.words());
    const QString problem = ApplicationStart::problem(
        surroundings, QStringLiteral("--non-interactive checks models in this terminal"));
    if (!problem.isEmpty()) {
        return refuse(problem);
    }
    const auto application = ApplicationStart::make(surroundings, arguments);
    const Services services({QStringLiteral("editkest"), QStringLiteral("models/dipole.nec")},
                            surroundings != Surroundings::Window);
    const CommandLine commandLine = CommandLine::parse(arguments.words());
    switch (commandLine.request) {
    case CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case CommandLine::Request::Refuse:
        return refuse(commandLine.text, arguments.hint());
    case CommandLine::Request::CheckModels:
        return checkAll(commandLine.models);
    case CommandLine::Request::ShowWindow:
        break;
    }
    const QString folderProblem = SuiteFolders::problem();
    if (!folderProblem.isEmpty()) {
        return refuse(folderProblem);
    }
    EditorWindow window(commandLine.models.value(0));
    window.show();
    return QApplication::exec();
}
