// SPDX-License-Identifier: MIT
#include "MainMenu.h"

#include "RecentMenu.h"

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QAction>
#include <QCoreApplication>
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

constexpr const char* fileMenu = QT_TRANSLATE_NOOP("MenuBar", "&File");
constexpr const char* runsMenu = QT_TRANSLATE_NOOP("MenuBar", "&Run");
constexpr const char* optionsMenu = QT_TRANSLATE_NOOP("MenuBar", "&Options");

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
    {fileMenu,    false, false, "openAction",          QT_TRANSLATE_NOOP("MainMenu", "&Open..."),                     "Ctrl+O",      "open",     &MainMenu::openRequested},
    {fileMenu,    true,  false, "quitAction",          QT_TRANSLATE_NOOP("MainMenu", "&Quit"),                        "Ctrl+Q",      "",         &MainMenu::quitRequested},
    {runsMenu,    false, false, "runAction",           QT_TRANSLATE_NOOP("MainMenu", "&Run"),                         "F5",          "play",     &MainMenu::runRequested},
    {runsMenu,    false, false, "stopAction",          QT_TRANSLATE_NOOP("MainMenu", "&Stop..."),                     "Shift+F5",    "exclude",  &MainMenu::stopRequested},
    {runsMenu,    true,  true,  "farmOutAction",       QT_TRANSLATE_NOOP("MainMenu", "&Farm out by OPTKEST"),         "",            "",         &MainMenu::farmOutTicked},
    {runsMenu,    true,  false, "showRunAction",       QT_TRANSLATE_NOOP("MainMenu", "Op&en run"),                     "Ctrl+Return", "",         &MainMenu::showRunRequested},
    {runsMenu,    false, false, "clearAction",         QT_TRANSLATE_NOOP("MainMenu", "&Clear ended runs"),            "",            "",         &MainMenu::clearRequested},
    {optionsMenu, false, false, "launchOptionsAction", QT_TRANSLATE_NOOP("MainMenu", "Component &launch options..."), "Ctrl+L",      "settings", &MainMenu::launchOptionsRequested},
    {optionsMenu, false, false, "machinesFileAction",  QT_TRANSLATE_NOOP("MainMenu", "&Machines file..."),            "",            "machines", &MainMenu::machinesFileRequested},
    {optionsMenu, true,  false, "preferencesAction",   QT_TRANSLATE_NOOP("MainMenu", "&Preferences..."),              "Ctrl+,",      "settings", &MainMenu::preferencesRequested},
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

QMenu* MainMenu::runMenu()
{
    return menu(runsMenu);
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
QMenu* MainMenu::menu(const char* untranslated)
{
    const QString title = QCoreApplication::translate("MenuBar", untranslated);
    const QList<QAction*> menus = m_window->menuBar()->actions();
    const auto found = std::find_if(menus.begin(), menus.end(), [&title](const QAction* each) {
        return each->text() == title;
    });
    return found == menus.end() ? m_window->menuBar()->addMenu(title) : (*found)->menu();
}

void MainMenu::addAction(const ActionRow& row)
{
    QMenu* parent = menu(row.menu);
    if (row.startsGroup) {
        parent->addSeparator();
    }
    QAction* entry = parent->addAction(tr(row.text));
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
    QMenu* const parent = menu(fileMenu);
    parent->insertMenu(parent->actions().at(1), m_recentMenu);
}

QAction* MainMenu::action(const char* name) const
{
    return m_window->findChild<QAction*>(QLatin1String(name));
}
