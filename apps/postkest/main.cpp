#include "CommandLine.h"
#include "Export.h"
#include "ResultView.h"
#include "ViewerWindow.h"

#include <ApplicationIdentity.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <QApplication>

#include <cstdio>

namespace {

constexpr int exitBadFile = 1;
constexpr int exitBadCommandLine = 2;

void complain(const QString& text)
{
    std::fprintf(stderr, "postkest: %s\n", qPrintable(text));
}

int writeFile(const CommandLine& commandLine)
{
    QVector<Result> results;
    for (const QString& path : commandLine.results) {
        results.append(Result::read(path));
        if (!results.last().error.isEmpty()) {
            complain(QStringLiteral("%1: %2").arg(path, results.last().error));
            return exitBadFile;
        }
    }
    ResultView view;
    view.setResults(results);
    view.layOut(commandLine.size);
    const QString error = Export::write(commandLine.output, view, results);
    if (!error.isEmpty()) {
        complain(error);
        return exitBadFile;
    }
    std::printf("%s\n", qPrintable(commandLine.output));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isWithoutWindow = CommandLine::isWithoutWindow(argc, argv);
    if (isWithoutWindow) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("postkest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(POSTKEST_VERSION));

    const Services services({QStringLiteral("postkest"), QString()}, isWithoutWindow);
    const CommandLine commandLine = CommandLine::parsed(QCoreApplication::arguments());
    const QString problem = SuiteFolders::problem();
    if (!problem.isEmpty() && commandLine.request != CommandLine::Request::ShowText) {
        complain(problem);
        return exitBadCommandLine;
    }
    switch (commandLine.request) {
    case CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case CommandLine::Request::Refuse:
        complain(commandLine.text + QStringLiteral("\nTry \"postkest --help\"."));
        return exitBadCommandLine;
    case CommandLine::Request::WriteFile:
        return writeFile(commandLine);
    case CommandLine::Request::ShowWindow:
        break;
    }
    ViewerWindow window(commandLine.results);
    window.show();
    return QApplication::exec();
}
