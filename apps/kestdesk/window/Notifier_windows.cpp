// SPDX-License-Identifier: MIT
#include "Notifier.h"

#include <QIcon>
#include <QSystemTrayIcon>

namespace {

constexpr int shownFor = 8000; // milliseconds

} // namespace

void Notifier::show(const QString& title, const QString& text)
{
    if (!QSystemTrayIcon::supportsMessages()) {
        return;
    }
    static QSystemTrayIcon trayIcon;
    trayIcon.show();
    trayIcon.showMessage(title, text, QIcon(), shownFor);
}
