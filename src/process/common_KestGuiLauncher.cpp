// SPDX-License-Identifier: MIT
#include <common_KestGuiLauncher.h>

#include <ConsoleWindow.h>
#include <ProgramName.h>
#include <common_Assert.h>
#include <common_EnvironmentVariablesExt.h>
#include <common_IApplication.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <array>

namespace {

constexpr const char* sourceFile = "src/process/common_KestGuiLauncher.cpp";

// Indexed by common_KestGuiLauncher::AppType.
constexpr std::array<const char*, 3> executables = {"cadkest", "postkest", "editkest"};

void showMessage(QWidget* parent, const QString& text)
{
    common_UserQuery(QStringLiteral("Information"), text, common_UserQuery::Information, parent,
                     QString())
        .display();
}

void showFailedStart(QWidget* parent, const QString& what)
{
    showMessage(parent,
                QStringLiteral("Process could not be started with the following arguments:\n%1\n"
                               "Please ensure that Morlan Kest is fully installed, and that\n"
                               "the KEST_HOME environment variable is set correctly.")
                    .arg(what));
}

} // namespace

QString common_KestGuiLauncher::getExecutableString(AppType type)
{
    const auto index = static_cast<std::size_t>(type);
    if (index >= executables.size()) {
        COMMON_ASSERT_AT(false, "0", sourceFile, __LINE__);
        return QString();
    }
    return QStringLiteral("%1/bin/%2%3")
        .arg(common_EnvironmentVariablesExt::getVariableExpanded("KEST_HOME"),
             QLatin1String(executables.at(index)), QLatin1String(ProgramName::suffix()));
}

QStringList common_KestGuiLauncher::getModifiedArguments(const QStringList& arguments)
{
    const auto* const application = common_ServiceOf<common_IApplication>::getService(
        "common_IApplication", sourceFile, __LINE__);
    return application->isNonInteractive()
               ? QStringList(arguments) << QStringLiteral("--non-interactive")
               : arguments;
}

bool common_KestGuiLauncher::launch(QWidget* parent, AppType type, const QStringList& arguments,
                                    const QString& workingDir)
{
    COMMON_ASSERT_AT(!workingDir.isNull(), "!workingDir.isNull()", sourceFile, __LINE__);
    const QString program = getExecutableString(type);
    const QStringList modifiedArguments = getModifiedArguments(arguments);
    if (QFile::exists(program) && QProcess::startDetached(program, modifiedArguments, workingDir)) {
        return true;
    }
    showFailedStart(parent, QDir::toNativeSeparators(program) + QLatin1Char('.'));
    return false;
}

bool common_KestGuiLauncher::launchKestConsole(QWidget* parent, const QString& program,
                                               const QStringList& arguments,
                                               const QString& workingDir)
{
    QProcess process;
    process.setProgram(QDir::toNativeSeparators(program));
    process.setArguments(arguments);
    process.setWorkingDirectory(workingDir);
    process.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    ConsoleWindow::openFor(process);
    const bool started = process.startDetached();
    if (!started) {
        showFailedStart(parent, QStringLiteral("%1 %2").arg(QDir::toNativeSeparators(program),
                                                            arguments.join(QLatin1Char(' '))));
    }
    return started;
}

bool common_KestGuiLauncher::launchQuill(QWidget* parent, const QString& directory,
                                         const QString& executable, const QString& workingDir)
{
    const QString program = QDir::toNativeSeparators(directory + QDir::separator() + executable);
    if (QFile::exists(program) && QProcess::startDetached(program, {}, workingDir)) {
        return true;
    }
    showMessage(parent, QStringLiteral("Process could not be started. Please ensure\n"
                                       "that Quill is fully installed."));
    return false;
}
