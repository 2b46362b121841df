// SPDX-License-Identifier: MIT
#include "WindowCommand.h"

#include "HardwareOffer.h"
#include "MainWindow.h"
#include "RenderingDialog.h"
#include "RenderingSettings.h"
#include "RenderingSwitch.h"

#include <HelpMenu.h>
#include <RecentMenu.h>
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
#include <QTimer>

namespace {

void addRenderingAction(MainWindow& window, RenderingSettings& settings,
                        RenderingSwitch& renderingSwitch)
{
    QAction* action = window.settingsMenu()->addAction(
        QCoreApplication::translate("WindowCommand", "&Rendering..."), &window,
        [&window, &settings, &renderingSwitch] {
            RenderingDialog dialog(window.view(), &settings, &window);
            QObject::connect(&dialog, &RenderingDialog::applied, &window, [&] {
                window.view()->setFaceDisplacement(settings.faceDisplacement);
                renderingSwitch.change(settings.rendering);
            });
            dialog.exec();
        });
    action->setObjectName(QStringLiteral("actionRendering"));
}

// What the suite does for each of its applications' windows.
void prepare(MainWindow& window, const common_CommonSettingsSet& settings)
{
    const QString name = GET_SERVICE(common_IApplicationInfo)->applicationName();
    window.setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(name));
    GET_SERVICE(common_HelpClient)->registerPage(&window, name);
    HelpMenu::addTo(window, QCoreApplication::translate(
                                "WindowCommand", "Shows a model's wires in three dimensions."));
    WindowGeometry::restore(window, *settings.geometry());
    window.addRecentMenu(new RecentMenu(&window, settings.recentFiles()));
    const auto mouse = common_3DMouseOptions::create(ReadOnlyAccess);
    window.view()->setSpaceMouseSensitivity(mouse->getMouseSensitivity());
}

} // namespace

int showWindow(const QString& model)
{
    auto* info = GET_SERVICE(common_IApplicationInfo);
    common_CommonSettingsSet settings(info->userSettingsDirectory(), info->applicationName());
    settings.readSettings();
    RenderingSettings rendering(settings.getFullFilename());
    rendering.readSettings();

    MainWindow window;
    prepare(window, settings);
    window.view()->setFaceDisplacement(rendering.faceDisplacement);
    RenderingSwitch renderingSwitch(&window, &rendering, QApplication::applicationFilePath());
    addRenderingAction(window, rendering, renderingSwitch);
    if (!model.isEmpty()) {
        window.openModel(model);
    }
    window.show();
    renderingSwitch.start();
    HardwareOffer offer(&window, &rendering, &renderingSwitch);
    QTimer::singleShot(0, &offer, &HardwareOffer::make); // once the window is there
    const int exitCode = QApplication::exec();
    WindowGeometry::save(window, *settings.geometry());
    settings.writeSettings();
    return exitCode;
}
