// kestdesk's own command line, a line of the input for each argument.

#include "Fuzzing.h"

#include <CommandLine.h>

#include <QCoreApplication>

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    QStringList arguments(QStringLiteral("kestdesk"));
    while (!input.isAtEnd()) {
        arguments.append(FuzzedInput::decoded(input.line()));
    }
    using Request = CommandLine::Request;
    const CommandLine line = CommandLine::parse(arguments);
    require(line.request != Request::Refuse || !line.text.isEmpty(), "a refusal says why");
    require(line.request != Request::ShowText || !line.text.isEmpty(), "there is text to show");
    require(line.request != Request::RunModels || (line.component && !line.models.isEmpty()),
            "a run has a component and a model");
    require(line.request != Request::ShowWindow || line.models.size() <= 1,
            "the window takes one model");
    require(CommandLine::asksForWindow(arguments) == (line.request == Request::ShowWindow),
            "the first look at the command line sees what the second sees");
    for (const QString& model : line.models) {
        require(arguments.contains(model), "a model is one of the arguments");
    }
}
