// SPDX-License-Identifier: MIT
#include "LaunchChoice.h"

#include "LaunchOptionsDialog.h"
#include "MainMenu.h"
#include "RunChoice.h"
#include "RunPanel.h"

LaunchChoice::LaunchChoice(RunPanel* panel, MainMenu* menu, QObject* parent)
    : QObject(parent), m_panel(panel), m_menu(menu)
{
    connect(panel, &RunPanel::tickedChanged, this, &LaunchChoice::save);
    connect(menu, &MainMenu::farmOutTicked, this, &LaunchChoice::save);
}

void LaunchChoice::restore()
{
    show(RunChoice::load());
}

common_RunWrapper::RunOptions LaunchChoice::options() const
{
    common_RunWrapper::RunOptions result = m_panel->ticked();
    result.setFlag(common_RunWrapper::FarmOut, m_menu->isFarmOutTicked());
    return result;
}

void LaunchChoice::editLaunchOptions(QWidget* window)
{
    const common_RunWrapper::RunOptions before = RunChoice::load();
    LaunchOptionsDialog::edit(window);
    const common_RunWrapper::RunOptions after = RunChoice::load();
    if (after != before) {
        show(after);
    }
}

void LaunchChoice::show(common_RunWrapper::RunOptions options)
{
    m_panel->setTicked(options);
    m_menu->setFarmOutTicked(options.testFlag(common_RunWrapper::FarmOut));
}

// The message that another program has locked the launch options is shown only once.
void LaunchChoice::save()
{
    if (m_isLockShown && RunChoice::isLocked()) {
        return;
    }
    const bool isKept = RunChoice::save(options());
    m_isLockShown = !isKept;
    Q_EMIT saved(isKept);
}
