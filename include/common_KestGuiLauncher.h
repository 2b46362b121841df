// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QStringList>

class QWidget;

/// Starts the suite's other applications as detached processes, which may outlive this one.
///
/// Each launch returns whether the program was started; if not, a message box over the parent,
/// which may be null, has said so. Needs the service common_IApplication.
class KEST_COMMON_EXPORT common_KestGuiLauncher
{
public:
    /// The applications that can be started. The numbers are fixed.
    enum AppType {
        CadKest = 0,  ///< the model editor
        PostKest = 1, ///< the results viewer
        EditKest = 2  ///< the script editor
    };

    /// The application's program in the installation that KEST_HOME names.
    static QString getExecutableString(AppType type);

    /// The arguments, followed by "--non-interactive" when this application is non-interactive.
    static QStringList getModifiedArguments(const QStringList& arguments);

    /// Starts one of the applications. The working directory must not be a null string; an empty
    /// one is this process's.
    static bool launch(QWidget* parent, AppType type, const QStringList& arguments,
                       const QString& workingDir);

    /// Starts a console program in a console of its own, if one is available.
    static bool launchKestConsole(QWidget* parent, const QString& program,
                                  const QStringList& arguments, const QString& workingDir);

    /// Starts Quill, the antenna-design application, from where it is installed.
    static bool launchQuill(QWidget* parent, const QString& directory, const QString& executable,
                            const QString& workingDir);
};
