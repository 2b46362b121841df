// SPDX-License-Identifier: MIT
#include "WindowCommand.h"

#include "Leftovers.h"
#include "MainWindow.h"
#include "StopSignals.h"

#include <QApplication>
#include <QTimer>

int showWindow(const WindowStart& start)
{
    Leftovers::remove();
    MainWindow window(start.models.isEmpty() ? MainWindow::Start::LastModel
                                             : MainWindow::Start::NoModel);
    if (start.component != nullptr) {
        window.setComponent(*start.component);
    }
    StopSignals::watch(&window, [&window] { window.quit(); });
    window.show();
    if (!start.models.isEmpty()) {
        QTimer::singleShot(0, &window,
                           [&window, start] { window.openModels(start.models, start.hint); });
    }
    return QApplication::exec();
}
