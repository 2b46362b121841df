// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QMainWindow;

/// The menu "Help" of an application's window: its help page, and what the application is.
namespace HelpMenu {

/// Adds the menu behind those that are there. The purpose is one sentence, which "About" shows.
void addTo(QMainWindow& window, const QString& purpose);

} // namespace HelpMenu
