// A plugin for any program of Qt: plays the user of kestdesk who presses Run once a model is there.
#include <QAbstractButton>
#include <QApplication>
#include <QGenericPlugin>
#include <QTimer>

namespace {

QAbstractButton* runButton()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* const window : windows) {
        auto* const button = window->findChild<QAbstractButton*>(QStringLiteral("runButton"));
        if (button != nullptr && button->isVisible() && button->isEnabled()) {
            return button;
        }
    }
    return nullptr;
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
        QAbstractButton* const button = runButton();
        if (button != nullptr) {
            stop();
            button->click();
        }
    }
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
