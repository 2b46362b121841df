#include "BatchSession.h"
#include "CommandLine.h"
#include "Environment.h"
#include "MachinesCommand.h"
#include "OptionsCommand.h"
#include "Services.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestdesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTDESK_VERSION));

    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    Environment::complete();
    const Services services(true); // nothing has a window yet
    const CommandLine commandLine = CommandLine::parsed(QCoreApplication::arguments());
    switch (commandLine.request) {
    case CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case CommandLine::Request::Refuse:
        std::fprintf(stderr, "kestdesk: %s\nTry \"kestdesk --help\".\n",
                     qPrintable(commandLine.text));
        return 2;
    case CommandLine::Request::EditOptions:
        return OptionsCommand::run(commandLine.words);
    case CommandLine::Request::UseMachines:
        return MachinesCommand::run(commandLine.words);
    case CommandLine::Request::RunModels:
        break;
    }
    return BatchSession(*commandLine.component, commandLine.options, commandLine.models).exec();
}
