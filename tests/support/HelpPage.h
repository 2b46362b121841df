// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QTextBrowser>

/// The text of the help page that is on the screen, empty when there is none.
inline QString shownHelpPage()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window->objectName() == QLatin1String("helpViewer") && window->isVisible()) {
            return window->findChild<QTextBrowser*>()->toPlainText();
        }
    }
    return QString();
}
