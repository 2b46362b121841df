// SPDX-License-Identifier: MIT
#include "ApplicationMenu.h"

#include "Console.h"
#include "Descendants.h"
#include "Installation.h"
#include "UnreadableModel.h"
#include "WindowRun.h"

#include <ConsoleWindow.h>
#include <VisibleText.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

#include <algorithm>

namespace {

using Launcher = common_KestGuiLauncher;

struct ActionRow
{
    const char* name;
    const char* text;
    const char* shortcut;
    const char* icon;
    const char* hint;
};

// clang-format off
const ActionRow actionRows[] = {
    {"viewModelAction",      QT_TRANSLATE_NOOP("ApplicationMenu", "&View model"),                 "F6",       "cadkest",  QT_TRANSLATE_NOOP("ApplicationMenu", "Show the model's wires in cadkest")},
    {"editModelAction",      QT_TRANSLATE_NOOP("ApplicationMenu", "&Edit model"),                 "F7",       "editkest", QT_TRANSLATE_NOOP("ApplicationMenu", "Change the model in editkest")},
    {"showResultsAction",    QT_TRANSLATE_NOOP("ApplicationMenu", "Show &results"),               "F8",       "postkest", QT_TRANSLATE_NOOP("ApplicationMenu", "Show what the selected run has found in postkest")},
    {"showAllResultsAction", QT_TRANSLATE_NOOP("ApplicationMenu", "Show results of &all runs"),   "Shift+F8", "result",   QT_TRANSLATE_NOOP("ApplicationMenu", "Show what all runs of this session have found in postkest")},
    {"consoleAction",        QT_TRANSLATE_NOOP("ApplicationMenu", "Solver &console"),             "F9",       nullptr,    QT_TRANSLATE_NOOP("ApplicationMenu", "Open a shell in the model's folder that knows the solver components")},
};
// clang-format on

const ActionRow& rowOf(const char* name)
{
    return *std::find_if(
        std::begin(actionRows), std::end(actionRows),
        [name](const ActionRow& row) { return QLatin1String(row.name) == QLatin1String(name); });
}

QStringList existing(const QStringList& files)
{
    QStringList result;
    std::copy_if(files.begin(), files.end(), std::back_inserter(result),
                 [](const QString& file) { return QFileInfo(file).isFile(); });
    return result;
}

QStringList resultsOf(const WindowRun* run)
{
    return run == nullptr ? QStringList() : existing(run->results());
}

void reportError(const QString& title, const QString& text, QWidget* window)
{
    common_UserQuery(title, text, common_UserQuery::Error, window, QString()).display();
}

// Launched applications are not ended with the runs.
template <typename Launch>
bool isStarted(Launch launch)
{
    bool result = false;
    Descendants::startDetached([&] { result = launch(); });
    return result;
}

QString nativeLines(const QStringList& files)
{
    QStringList lines;
    std::transform(files.begin(), files.end(), std::back_inserter(lines), suite::visiblePath);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

ApplicationMenu::ApplicationMenu(QWidget* window)
    : QMenu(tr("&Applications"), window)
    , m_window(window)
    , m_viewModel(addLaunch("viewModelAction", &ApplicationMenu::viewModel))
    , m_editModel(addLaunch("editModelAction", &ApplicationMenu::editModel))
    , m_showResults(addLaunch("showResultsAction", &ApplicationMenu::showResults))
    , m_showAllResults(addLaunch("showAllResultsAction", &ApplicationMenu::showAllResults))
    , m_console(addLaunch("consoleAction", &ApplicationMenu::openConsole))
{
    setObjectName(QStringLiteral("applicationMenu"));
    setToolTipsVisible(true);
    insertSeparator(m_console);
}

QAction* ApplicationMenu::addLaunch(const char* name, void (ApplicationMenu::*slot)())
{
    const ActionRow& row = rowOf(name);
    QAction* action = addAction(tr(row.text));
    action->setObjectName(QLatin1String(row.name));
    action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    action->setToolTip(tr(row.hint));
    if (row.icon != nullptr) {
        action->setIcon(GET_SERVICE(common_IIconUtility)->getIcon(QLatin1String(row.icon)));
    }
    connect(action, &QAction::triggered, this, slot);
    return action;
}

QWidget* ApplicationMenu::makeResultsButton(QWidget* parent)
{
    auto* button = new QPushButton(m_showResults->icon(), tr("Show resu&lts"), parent);
    button->setObjectName(QStringLiteral("showResultsButton"));
    button->setToolTip(m_showResults->toolTip());
    button->setAccessibleDescription(m_showResults->toolTip());
    connect(button, &QPushButton::clicked, m_showResults, &QAction::trigger);
    connect(m_showResults, &QAction::changed, button,
            [this, button] { button->setEnabled(m_showResults->isEnabled()); });
    return button;
}

void ApplicationMenu::setTargets(const QString& model, const WindowRun* selected,
                                 const QVector<WindowRun*>& runs)
{
    m_model = model;
    m_results = resultsOf(selected);
    m_allResults.clear();
    for (const WindowRun* run : runs) {
        m_allResults += resultsOf(run);
    }
    m_allResults.removeDuplicates(); // runs of one model name the same files
    m_viewModel->setEnabled(!m_model.isEmpty());
    m_editModel->setEnabled(!m_model.isEmpty());
    m_showResults->setEnabled(!m_results.isEmpty());
    m_showAllResults->setEnabled(!m_allResults.isEmpty());
    m_console->setEnabled(ConsoleWindow::isAvailable());
}

void ApplicationMenu::viewModel()
{
    launchOnModel(Launcher::CadKest);
}

void ApplicationMenu::editModel()
{
    launchOnModel(Launcher::EditKest);
}

void ApplicationMenu::showResults()
{
    launchOnResults(m_results);
}

void ApplicationMenu::showAllResults()
{
    launchOnResults(m_allResults);
}

void ApplicationMenu::openConsole()
{
    const QString modelFolder = QFileInfo(m_model).absolutePath();
    const bool hasFolder = !m_model.isEmpty() && QFileInfo(modelFolder).isDir();
    const QString folder = hasFolder ? modelFolder : QDir::homePath();
    const Console console = Console::finding(Installation::directory() + QStringLiteral("/bin"));
    if (isStarted([&] {
            return Launcher::launchKestConsole(m_window, console.program, console.arguments,
                                               folder);
        })) {
        Q_EMIT launched(tr("Opening a console in %1").arg(suite::visiblePath(folder)));
    }
}

void ApplicationMenu::launchOnModel(Application application)
{
    const QFileInfo model(m_model);
    if (!model.isFile() || !model.isReadable()) {
        reportError(tr("Model not opened"), UnreadableModel::text(m_model), m_window);
        return;
    }
    launch(application, {model.absoluteFilePath()});
}

void ApplicationMenu::launchOnResults(const QStringList& results)
{
    const QStringList files = existing(results);
    if (files.isEmpty()) {
        reportError(tr("No results"),
                    tr("These results are no longer there:\n%1").arg(nativeLines(results)),
                    m_window);
        return;
    }
    launch(Launcher::PostKest, files);
}

// Starts the application in the folder of the first file.
void ApplicationMenu::launch(Application application, const QStringList& files)
{
    const QFileInfo first(files.constFirst());
    if (isStarted(
            [&] { return Launcher::launch(m_window, application, files, first.absolutePath()); })) {
        const QFileInfo program(Launcher::getExecutableString(application));
        const QString name = program.baseName();
        Q_EMIT launched(
            files.size() == 1
                ? tr("Opening %1 in %2").arg(suite::visibleFileName(first.filePath()), name)
                : tr("Opening %1 results in %2").arg(QString::number(files.size()), name));
    }
}
