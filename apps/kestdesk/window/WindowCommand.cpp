#include "WindowCommand.h"

#include "Leftovers.h"
#include "MainWindow.h"
#include "StopSignals.h"

#include <QApplication>
#include <QTimer>

int showWindow(const QString& model, const Component* component)
{
    Leftovers::remove();
    MainWindow window;
    if (component != nullptr) {
        window.setComponent(*component);
    }
    StopSignals::watch(&window, [&window] { window.quit(); });
    window.show();
    if (!model.isEmpty()) {
        QTimer::singleShot(0, &window, [&window, model] { window.openModel(model); });
    }
    return QApplication::exec();
}
