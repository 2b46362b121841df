#include "CommandLine.h"
#include "PictureCommand.h"
#include "WindowCommand.h"

#include <ApplicationIdentity.h>
#include <Services.h>

#include <ComponentSetup.h>

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    const bool isNonInteractive = cad::CommandLine::isNonInteractive(argc, argv);
    if (isNonInteractive) {
        suite::setupComponent();
        qputenv("QT_QPA_PLATFORM", "offscreen"); // whatever display there is or is not
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("cadkest"));
    QApplication::setApplicationVersion(QStringLiteral(CADKEST_VERSION));

    const Services services({QStringLiteral("cadkest"), QStringLiteral("models/dipole.nec")},
                            isNonInteractive);
    const cad::CommandLine commandLine = cad::CommandLine::parsed(QApplication::arguments());
    switch (commandLine.request) {
    case cad::CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case cad::CommandLine::Request::Refuse:
        std::fprintf(stderr, "cadkest: %s\nTry \"cadkest --help\".\n",
                     qPrintable(commandLine.text));
        return 2;
    case cad::CommandLine::Request::MakePicture:
        return cad::makePicture(commandLine);
    case cad::CommandLine::Request::ShowWindow:
        break;
    }
    return cad::showWindow(commandLine);
}
