#include "MainMenu.h"

#include "RecentMenu.h"

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenuBar>
#include <QSignalBlocker>

#include <algorithm>

namespace {

QIcon icon(const char* name)
{
    return GET_SERVICE(common_IIconUtility)->getIcon(QLatin1String(name));
}

} // namespace

/// An entry of a menu.
struct MainMenu::ActionRow
{
    const char* menu;
    bool startsGroup; ///< comes behind a separator
    bool isCheckable;
    const char* name;
    const char* text;
    const char* shortcut; ///< empty for none
    const char* icon;     ///< empty for none
    void (MainMenu::*signal)();
};

// clang-format off
const MainMenu::ActionRow MainMenu::actionRows[] = {
    {"&File",    false, false, "openAction",          "&Open...",                     "Ctrl+O",      "open",     &MainMenu::openRequested},
    {"&File",    true,  false, "quitAction",          "&Quit",                        "Ctrl+Q",      "",         &MainMenu::quitRequested},
    {"&Run",     false, false, "runAction",           "&Run",                         "F5",          "play",     &MainMenu::runRequested},
    {"&Run",     false, false, "stopAction",          "&Stop...",                     "Shift+F5",    "exclude",  &MainMenu::stopRequested},
    {"&Run",     true,  true,  "farmOutAction",       "&Farm out by OPTKEST",         "",            "",         &MainMenu::farmOutTicked},
    {"&Run",     true,  false, "showRunAction",       "Op&en run",                     "Ctrl+Return", "",         &MainMenu::showRunRequested},
    {"&Run",     false, false, "clearAction",         "&Clear ended runs",            "",            "",         &MainMenu::clearRequested},
    {"&Options", false, false, "launchOptionsAction", "Component &launch options...", "Ctrl+L",      "settings", &MainMenu::launchOptionsRequested},
    {"&Options", false, false, "machinesFileAction",  "&Machines file...",            "",            "machines", &MainMenu::machinesFileRequested},
    {"&Options", true,  false, "preferencesAction",   "&Preferences...",              "Ctrl+,",      "settings", &MainMenu::preferencesRequested},
};
// clang-format on

MainMenu::MainMenu(QMainWindow* window, common_recent_file_settings* recentFiles)
    : QObject(window), m_window(window), m_recentMenu(new RecentMenu(window, recentFiles))
{
    for (const ActionRow& row : actionRows) {
        addAction(row);
    }
    addRecentMenu();
}

bool MainMenu::isFarmOutTicked() const
{
    return action("farmOutAction")->isChecked();
}

void MainMenu::setFarmOutTicked(bool ticked)
{
    const QSignalBlocker blocker(action("farmOutAction"));
    action("farmOutAction")->setChecked(ticked);
}

void MainMenu::setFarmOutEnabled(bool enabled)
{
    action("farmOutAction")->setEnabled(enabled);
}

void MainMenu::setRunEnabled(bool enabled)
{
    action("runAction")->setEnabled(enabled);
}

void MainMenu::setStopEnabled(bool enabled)
{
    action("stopAction")->setEnabled(enabled);
}

// The menu with that title in the menu bar; made if it does not exist.
QMenu* MainMenu::menu(const QString& title)
{
    const QList<QAction*> menus = m_window->menuBar()->actions();
    const auto found = std::find_if(menus.begin(), menus.end(), [&title](const QAction* each) {
        return each->text() == title;
    });
    return found == menus.end() ? m_window->menuBar()->addMenu(title) : (*found)->menu();
}

void MainMenu::addAction(const ActionRow& row)
{
    QMenu* parent = menu(QLatin1String(row.menu));
    if (row.startsGroup) {
        parent->addSeparator();
    }
    QAction* entry = parent->addAction(QLatin1String(row.text));
    entry->setObjectName(QLatin1String(row.name));
    entry->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    entry->setCheckable(row.isCheckable);
    if (*row.icon != '\0') {
        entry->setIcon(icon(row.icon));
    }
    if (row.isCheckable) {
        connect(entry, &QAction::toggled, this, row.signal);
    } else {
        connect(entry, &QAction::triggered, this, row.signal);
    }
}

// Adds the recent files behind the entry that opens a file.
void MainMenu::addRecentMenu()
{
    m_recentMenu->setIcon(icon("recent"));
    QMenu* fileMenu = menu(QStringLiteral("&File"));
    fileMenu->insertMenu(fileMenu->actions().at(1), m_recentMenu);
}

QAction* MainMenu::action(const char* name) const
{
    return m_window->findChild<QAction*>(QLatin1String(name));
}
