// SPDX-License-Identifier: MIT
// A plugin for any program of Qt: plays the user of kestdesk who presses Run once a model is there,
// or another button, which KEST_TEST_BUTTON names, once it can be pressed. Makes the file that
// KEST_TEST_UP names when the window is there.
#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QTimer>

#include <algorithm>

namespace {

QAbstractButton* runButton()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* const window : windows) {
        auto* const button = window->findChild<QAbstractButton*>(
            qEnvironmentVariable("KEST_TEST_BUTTON", QStringLiteral("runButton")));
        if (button != nullptr && button->isVisible() && button->isEnabled()) {
            return button;
        }
    }
    return nullptr;
}

bool isWindowThere()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWidget* window) { return window->isVisible(); });
}

class Presser : public QTimer
{
public:
    Presser()
    {
        connect(this, &QTimer::timeout, this, [this] { look(); });
        start(10);
    }

private:
    void look()
    {
        if (!m_isUp && isWindowThere()) {
            m_isUp = true;
            if (qEnvironmentVariableIsSet("KEST_TEST_UP")) {
                QFile(qEnvironmentVariable("KEST_TEST_UP")).open(QIODevice::WriteOnly);
            }
        }
        QAbstractButton* const button = runButton();
        if (button != nullptr) {
            stop();
            button->click();
        }
    }

    bool m_isUp = false;
};

} // namespace

class RunPresserPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "run_presser.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override
    {
        return new Presser;
    }
};

#include "run_presser.moc"
