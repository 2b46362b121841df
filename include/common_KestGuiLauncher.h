#pragma once

#include <kest_common_export.h>

class QString;
class QStringList;
class QWidget;

/// Starts the suite's other applications as processes that outlive this one and are not watched.
///
/// Each launch returns whether it succeeded; when it did not, the user has been told in a box over
/// the parent, which may be null. Needs the service common_IApplication.
class KEST_COMMON_EXPORT common_KestGuiLauncher
{
public:
    enum AppType {
        CadKest = 0,  ///< the model editor
        PostKest = 1, ///< the results viewer
        EditKest = 2  ///< the script editor
    };

    /// The application's program in the installation that KEST_HOME names.
    static QString getExecutableString(AppType type);

    /// The arguments, and "--non-interactive" behind them in a run without a person.
    static QStringList getModifiedArguments(const QStringList& arguments);

    /// Starts one of the applications. The working directory must not be a null string; an empty
    /// one is this process's.
    static bool launch(QWidget* parent, AppType type, const QStringList& arguments,
                       const QString& workingDir);

    /// Starts a console program in a console of its own, where the platform has one to offer.
    static bool launchKestConsole(QWidget* parent, const QString& program,
                                  const QStringList& arguments, const QString& workingDir);

    /// Starts Quill, the antenna-design application, from where it is installed.
    static bool launchQuill(QWidget* parent, const QString& directory, const QString& executable,
                            const QString& workingDir);
};
