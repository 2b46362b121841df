#include "CommandLine.h"
#include "PictureCommand.h"
#include "ProbeCommand.h"
#include "WindowCommand.h"

#include <ApplicationIdentity.h>
#include <Display.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <ComponentSetup.h>

#include <QApplication>

#include <cstdio>

namespace {

int refuse(const QString& text)
{
    std::fprintf(stderr, "cadkest: %s\nTry \"cadkest --help\".\n", qPrintable(text));
    return 2;
}

void setUpPixels()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isNonInteractive = cad::CommandLine::isNonInteractive(argc, argv);
    if (isNonInteractive) {
        suite::setupComponent();
        qputenv("QT_QPA_PLATFORM", "offscreen"); // whatever display there is or is not
    }
    if (!Display::exists()) {
        return refuse(QStringLiteral("there is no display for the window; --non-interactive makes "
                                     "a picture without one"));
    }
    setUpPixels();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("cadkest"));
    QApplication::setApplicationVersion(QStringLiteral(CADKEST_VERSION));

    const Services services({QStringLiteral("cadkest"), QStringLiteral("models/dipole.nec")},
                            isNonInteractive);
    const cad::CommandLine commandLine = cad::CommandLine::parsed(QApplication::arguments());
    const QString problem = SuiteFolders::problem();
    if (!problem.isEmpty() && commandLine.request != cad::CommandLine::Request::ShowText) {
        return refuse(problem);
    }
    switch (commandLine.request) {
    case cad::CommandLine::Request::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case cad::CommandLine::Request::Refuse:
        return refuse(commandLine.text);
    case cad::CommandLine::Request::MakePicture:
        return cad::makePicture(commandLine);
    case cad::CommandLine::Request::TryHardware:
        return cad::tryHardware();
    case cad::CommandLine::Request::ShowWindow:
        break;
    }
    return cad::showWindow(commandLine);
}
