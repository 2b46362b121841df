// SPDX-License-Identifier: MIT
#include "ApplicationStart.h"

#include "ApplicationDescription.h"
#include "ApplicationRequest.h"
#include "ErrorOutput.h"
#include "KeptConsole.h"
#include "Services.h"
#include "SuiteFolders.h"
#include "Translations.h"
#include "WindowDisplay.h"

#include <ConsoleEncoding.h>
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
    ErrorOutput::print(
        QCoreApplication::translate("ApplicationStart", "the output could not be written"));
    return exitIncomplete;
}

// Why there can be no application object; empty when there can. Qt would end the program, or keep
// files of its own in the root folder.
QString windowSystemProblem(WindowSystem windowSystem, const QString& alternative)
{
    if (windowSystem == WindowSystem::Display && !WindowDisplay::exists()) {
        return QCoreApplication::translate(
                   "ApplicationStart", "there is no display for the window; --non-interactive %1")
            .arg(alternative);
    }
    return windowSystem == WindowSystem::None ? QString() : suite::TemporaryFolder::placeProblem();
}

bool canStart(WindowSystem windowSystem)
{
    return windowSystemProblem(windowSystem, QString()).isEmpty();
}

// Translations need an application object, of a kind that can always be made.
int refuseWindowSystem(WindowSystem windowSystem,
                       const std::function<ApplicationDescription()>& describe,
                       suite::ProgramArguments& arguments)
{
    const QCoreApplication object(arguments.count(), arguments.values());
    Translations::install();
    return refuse(windowSystemProblem(windowSystem, describe().displayAlternative));
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
        KeptConsole::leaveUnshared();
        setUpPixels(); // those of a picture are what was asked for
    }
    return std::make_unique<QApplication>(arguments.count(), arguments.values());
}

} // namespace

int ApplicationStart::run(const std::function<ApplicationDescription()>& describe, int argc,
                          char* argv[])
{
    const ConsoleEncoding encoding;
    const ApplicationDescription untranslated = describe();
    QCoreApplication::setApplicationName(untranslated.identity.name);
    QCoreApplication::setApplicationVersion(suite::version());
    suite::ProgramArguments arguments(argc, argv);
    const WindowSystem windowSystem =
        ApplicationRequest::read(untranslated, arguments.words()).windowSystem;
    if (!canStart(windowSystem)) {
        return refuseWindowSystem(windowSystem, describe, arguments);
    }
    const auto applicationObject = makeApplicationObject(windowSystem, arguments);
    Translations::install();

    // Once more, as Qt's own options are gone now, and texts are in the user's language.
    const ApplicationDescription application = describe();
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
