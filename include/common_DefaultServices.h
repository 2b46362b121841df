// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QString>

#include <memory>

/// The services for an application that has none of its own, or not all.
///
/// Make one at the beginning of main(), behind the application object, and keep it until the end:
///
///     QApplication application(argc, argv);
///     const common_DefaultServices services(QStringLiteral("Antenna tool"));
///
/// It sets the services that are not set yet, and its destructor removes those that it has set. An
/// application that sets a service of its own later takes the place of the default one.
///
/// The services:
/// - common_IApplication: interactive in Windows mode only.
/// - common_IApplicationInfo: the folders below.
/// - common_ISession: shows messages in boxes, or on standard error in Console mode.
/// - common_IIconUtility: the desktop theme's icons, or those of the widgets' style, for the names
///   in common_ProcessDialogIcons; for other names the theme's icon of that name.
/// - common_IPixmapUtility: the picture of that name in the directory, with any suffix of an image
///   format of Qt; else the style's arrows for the pictures of the process dialog.
/// - common_HelpClient: shows no help.
///
/// The last three are set in Windows mode only. common_ISplashScreen and common_IScriptRecorder are
/// optional and are not set.
class KEST_COMMON_EXPORT common_DefaultServices
{
public:
    /// How much of a user interface the services have.
    enum Mode {
        Automatic, ///< Windows if there is a QApplication, else Console
        Windows,   ///< with windows, and a user who answers; needs a QApplication
        Console    ///< for terminals and scripts: no question is asked
    };

    /// The name is the application's as users know it. Needs the application object.
    explicit common_DefaultServices(const QString& applicationName, Mode mode = Automatic);

    common_DefaultServices(const common_DefaultServices&) = delete;
    common_DefaultServices& operator=(const common_DefaultServices&) = delete;

    ~common_DefaultServices();

    /// The installation: KEST_HOME; if that is not set, the folder above the program's, where the
    /// suite's own programs are.
    static QString installationDirectory();

    /// The user's folder, where kest.ini is: KEST_USER_HOME; if that is not set, the folder "kest"
    /// in the user's settings.
    static QString userSettingsDirectory();

    /// Sets KEST_HOME and KEST_USER_HOME to these two folders, as absolute paths. The run wrapper,
    /// the machines file finder, the launcher and the components read the variables themselves, so
    /// an application calls this before it uses them if its users need not set the variables.
    static void setEnvironment();

private:
    struct Objects;

    std::unique_ptr<Objects> m_objects;
};
