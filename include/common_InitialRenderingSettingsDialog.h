// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QMessageBox>
#include <QString>

class QPushButton;

/// The box in which an application that renders 3D views by software offers hardware rendering:
/// call Test(); when it returns true, switch the renderer and call Keep().
///
/// The caller switches the renderer and stores the choice. Needs the services common_IApplication,
/// common_IApplicationInfo and common_HelpClient.
class KEST_COMMON_EXPORT common_InitialRenderingSettingsDialog : public QMessageBox
{
    Q_OBJECT

public:
    /// The settings location is where in the application the rendering settings can be changed
    /// later. It and the application's name go into rich text as they are. A non-modal box leaves
    /// the 3D view usable while it asks for confirmation.
    common_InitialRenderingSettingsDialog(QWidget* parent, QString settingsLocation, bool nonModal);

    /// Asks whether to test hardware rendering, and waits for the answer. A non-interactive
    /// application gets false, and a line on standard output.
    ///
    /// Only the result of exec() counts. It is also 0 when the box closes without an answer, for
    /// example because its parent is destroyed: an application that ends should not switch then.
    bool Test();

    /// Becomes the confirmation and shows itself without waiting. The answer comes through the
    /// signals and the result of QMessageBox: button 0 and result 0 keep hardware rendering.
    void Keep();

private:
    QPushButton* m_pTestButton;
    QPushButton* m_pSoftwareButton;
    QString m_settingsLocation;
};
