#include "ApplicationIdentity.h"
#include "BatchSession.h"
#include "CommandLine.h"
#include "OptionsCommand.h"
#include "Services.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestdesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTDESK_VERSION));

    const Services services({QStringLiteral("kestdesk"), QStringLiteral("models/dipole.nec")},
                            true); // nothing has a window yet
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
        return OptionsCommand::run(commandLine.optionWords);
    case CommandLine::Request::RunModels:
        break;
    }
    return BatchSession(commandLine.component, commandLine.models).exec();
}
