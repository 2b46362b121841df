// SPDX-License-Identifier: MIT
// kestdesk's own command line, a line of the input for each argument.

#include "Fuzzing.h"

#include <ApplicationRequest.h>
#include <CommandLine.h>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

// The files that a task of the application has been made for.
struct SeenFiles
{
    bool isWindow = false;
    bool isBatch = false;
    QStringList files;
};

ApplicationDescription observed(SeenFiles& seen)
{
    ApplicationDescription result = CommandLine::application();
    const auto windowTask = result.windowTask;
    const auto batchTask = result.nonInteractiveTask;
    result.windowTask = [&seen, windowTask](const QCommandLineParser& parser) {
        seen = {true, false, parser.positionalArguments()};
        return windowTask(parser);
    };
    result.nonInteractiveTask = [&seen, batchTask](const QCommandLineParser& parser) {
        seen = {false, true, parser.positionalArguments()};
        return batchTask(parser);
    };
    return result;
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    QStringList arguments(QStringLiteral("kestdesk"));
    while (!input.isAtEnd()) {
        arguments.append(FuzzedInput::decoded(input.line()));
    }
    SeenFiles seen;
    const ApplicationDescription application = observed(seen);
    const ApplicationRequest request = ApplicationRequest::read(application, arguments);
    const bool isRefused = !request.task.problem.isEmpty();
    const bool isOfATask = !isRefused && (seen.isWindow || seen.isBatch);
    require(isRefused || request.task.run, "there is something to do, or a refusal says why");
    require(!isRefused || !request.isStandalone, "an answer is no refusal");
    require(!isOfATask || !seen.isBatch || !seen.files.isEmpty(), "a run has a model");
    require(!isOfATask || (request.windowSystem == WindowSystem::Display) == seen.isWindow,
            "a display is needed for the window alone");
    for (const QString& file : qAsConst(seen.files)) {
        require(arguments.contains(file), "a model is one of the arguments");
    }
    const ApplicationRequest second = ApplicationRequest::read(application, arguments);
    require(second.windowSystem == request.windowSystem &&
                second.task.problem == request.task.problem,
            "the first look at the command line sees what the second sees");
}
