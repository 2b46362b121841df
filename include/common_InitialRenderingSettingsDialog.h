#pragma once

#include <kest_common_export.h>

#include <QMessageBox>
#include <QString>

class QPushButton;

/// The box in which an application that renders 3D views by software offers hardware rendering:
/// first Test(), and when that is true the application switches and calls Keep().
///
/// Switching the renderer and storing the choice are the caller's. Needs the services
/// common_IApplication, common_IApplicationInfo and common_HelpClient.
class KEST_COMMON_EXPORT common_InitialRenderingSettingsDialog : public QMessageBox
{
    Q_OBJECT

public:
    /// The settings location is where in the application the rendering settings can be changed
    /// later. It and the application's name go into rich text as they are. A non-modal box leaves
    /// the 3D view usable while it asks for confirmation.
    common_InitialRenderingSettingsDialog(QWidget* parent, QString settingsLocation, bool nonModal);

    /// Asks, and waits for the answer: whether to test hardware rendering. A non-interactive
    /// application is not asked; it is told so on standard output, and the answer is false.
    ///
    /// Only the result of exec() counts, which is also 0 when the box goes without an answer,
    /// because its parent does for example: an application that ends should not switch then.
    bool Test();

    /// Turns into the confirmation and shows itself without waiting. The answer comes through the
    /// signals and the result of QMessageBox: button and result 0 are to keep hardware rendering.
    void Keep();

private:
    QPushButton* m_pTestButton;
    QPushButton* m_pSoftwareButton;
    QString m_settingsLocation;
};
