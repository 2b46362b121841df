// SPDX-License-Identifier: MIT
#include "HelpMenu.h"

#include "AboutBox.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

// The key is the help service's: it knows the page of each widget.
void showHelp(QMainWindow& window)
{
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &key);
}

} // namespace

void HelpMenu::addTo(QMainWindow& window, const QString& purpose)
{
    const QString name = GET_SERVICE(common_IApplicationInfo)->applicationName();
    QMenu* const menu = window.menuBar()->addMenu(QCoreApplication::translate("HelpMenu", "&Help"));
    QAction* const help =
        menu->addAction(QCoreApplication::translate("HelpMenu", "&Help on %1\tF1").arg(name));
    help->setObjectName(QStringLiteral("helpAction"));
    QObject::connect(help, &QAction::triggered, &window, [&window] { showHelp(window); });
    QAction* const about =
        menu->addAction(QCoreApplication::translate("HelpMenu", "&About %1").arg(name));
    about->setObjectName(QStringLiteral("aboutAction"));
    QObject::connect(about, &QAction::triggered, &window,
                     [&window, purpose] { AboutBox::show(window, purpose); });
}
