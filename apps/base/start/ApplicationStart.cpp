#include "ApplicationStart.h"

#include "ApplicationDescription.h"
#include "ApplicationRequest.h"
#include "ErrorOutput.h"
#include "Services.h"
#include "SuiteFolders.h"
#include "WindowDisplay.h"

#include <QtVersion.h>
#include <WriteFailures.h>

#include <ProgramArguments.h>
#include <StandardOutput.h>
#include <SuiteVersion.h>
#include <TemporaryFolder.h>

#include <QApplication>

#include <memory>

namespace {

constexpr int exitIncomplete = 1;
constexpr int exitRefused = 2;

int refuse(const QString& problem, const QString& hint = QString())
{
    ErrorOutput::printRefusal(problem, hint);
    return exitRefused;
}

// Runs the task. Output that is lost, as on a full disk, is a failure.
int completed(const ApplicationTask& task)
{
    const int exitCode = task.run();
    if (suite::StandardOutput::flush() || exitCode != 0) {
        return exitCode;
    }
    ErrorOutput::print(QStringLiteral("the output could not be written"));
    return exitIncomplete;
}

// Why there can be no application object; empty when there can. Qt would end the program, or keep
// files of its own in the root folder.
QString windowSystemProblem(WindowSystem windowSystem, const QString& alternative)
{
    if (windowSystem == WindowSystem::Display && !WindowDisplay::exists()) {
        return QStringLiteral("there is no display for the window; --non-interactive ") +
               alternative;
    }
    return windowSystem == WindowSystem::None ? QString() : suite::TemporaryFolder::placeProblem();
}

void setUpPixels()
{
    QtVersion::useAllPixels();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

std::unique_ptr<QCoreApplication> makeApplicationObject(WindowSystem windowSystem,
                                                        suite::ProgramArguments& arguments)
{
    if (windowSystem == WindowSystem::None) {
        return std::make_unique<QCoreApplication>(arguments.count(), arguments.values());
    }
    if (windowSystem == WindowSystem::Offscreen) {
        WriteFailures::report(); // pictures are written
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else {
        setUpPixels(); // those of a picture are what was asked for
    }
    return std::make_unique<QApplication>(arguments.count(), arguments.values());
}

} // namespace

int ApplicationStart::run(const ApplicationDescription& application, int argc, char* argv[])
{
    QCoreApplication::setApplicationName(application.identity.name);
    QCoreApplication::setApplicationVersion(suite::version());
    suite::ProgramArguments arguments(argc, argv);
    const WindowSystem windowSystem =
        ApplicationRequest::read(application, arguments.words()).windowSystem;
    const QString startProblem = windowSystemProblem(windowSystem, application.displayAlternative);
    if (!startProblem.isEmpty()) {
        return refuse(startProblem);
    }
    const auto applicationObject = makeApplicationObject(windowSystem, arguments);

    // Once more, as Qt's own options are gone now.
    const ApplicationRequest request = ApplicationRequest::read(application, arguments.words());
    if (!request.task.problem.isEmpty()) {
        return refuse(request.task.problem, arguments.hint());
    }
    if (request.isStandalone) {
        return completed(request.task);
    }
    const QString folderProblem = SuiteFolders::problem();
    if (!folderProblem.isEmpty()) {
        return refuse(folderProblem);
    }
    if (application.prepare) {
        application.prepare();
    }
    const Services services(application.identity, windowSystem != WindowSystem::Display);
    return completed(request.task);
}
