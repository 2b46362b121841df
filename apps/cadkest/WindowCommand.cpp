#include "WindowCommand.h"

#include "CommandLine.h"
#include "HardwareOffer.h"
#include "MainWindow.h"
#include "RenderingDialog.h"
#include "RenderingSettings.h"

#include <WindowGeometry.h>

#include <common_3DMouseOptions.h>
#include <common_CommonSettingsSet.h>
#include <common_HelpClient.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QTimer>

namespace cad {

namespace {

void applySettings(MainWindow& window, const RenderingSettings& settings)
{
    window.setRendering(settings.rendering);
    window.view()->setFaceDisplacement(settings.faceDisplacement);
}

void addRenderingAction(MainWindow& window, RenderingSettings& settings)
{
    QAction* action = window.settingsMenu()->addAction(
        QStringLiteral("&Rendering..."), &window, [&window, &settings] {
            RenderingDialog dialog(window.view(), &settings, &window);
            QObject::connect(&dialog, &RenderingDialog::applied, &window,
                             [&] { applySettings(window, settings); });
            dialog.exec();
        });
    action->setObjectName(QStringLiteral("actionRendering"));
}

} // namespace

int showWindow(const CommandLine& commandLine)
{
    auto* info = GET_SERVICE(common_IApplicationInfo);
    common_CommonSettingsSet settings(info->userSettingsDirectory(), info->applicationName());
    settings.readSettings();
    RenderingSettings rendering(settings.getFullFilename());
    rendering.readSettings();

    MainWindow window;
    window.setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(info->applicationName()));
    GET_SERVICE(common_HelpClient)->registerPage(&window, info->applicationName());
    WindowGeometry::restore(window, *settings.geometry());
    QObject::connect(&window, &MainWindow::modelOpened, &window, [&settings](const QString& path) {
        settings.recentFiles()->addRecentFile(path);
    });
    applySettings(window, rendering);
    addRenderingAction(window, rendering);
    const auto mouse = common_3DMouseOptions::create(ReadOnlyAccess);
    window.view()->setSpaceMouseSensitivity(mouse->getMouseSensitivity());
    if (!commandLine.model.isEmpty()) {
        window.openModel(commandLine.model);
    }
    window.show();
    HardwareOffer offer(&window, &rendering);
    QTimer::singleShot(0, &offer, &HardwareOffer::make); // once the window is there
    const int exitCode = QApplication::exec();
    WindowGeometry::save(window, *settings.geometry());
    settings.writeSettings();
    return exitCode;
}

} // namespace cad
