// SPDX-License-Identifier: MIT
// A plugin for any program of Qt: plays the user of cadkest. What it does stands in the variable
// KEST_CAD_USER, a step a line, each done as soon as it can be; what it sees goes to standard
// error.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextBrowser>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int restMilliseconds = 400;

template <typename Widget>
Widget* shown(const QString& name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* const each : widgets) {
        auto* const found = qobject_cast<Widget*>(each);
        if (found && found->isVisible() && (name.isEmpty() || found->objectName() == name)) {
            return found;
        }
    }
    return nullptr;
}

QAbstractButton* shownButton(const QString& label)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* const each : widgets) {
        auto* const button = qobject_cast<QAbstractButton*>(each);
        if (button && button->isVisible() && button->text().remove(QLatin1Char('&')) == label) {
            return button;
        }
    }
    return nullptr;
}

QWidget* view()
{
    return shown<QWidget>(QStringLiteral("sceneView"));
}

void say(QString words)
{
    words.replace(QLatin1Char('\n'), QLatin1Char('|'));
    std::fprintf(stderr, "user: %s\n", qPrintable(words));
}

} // namespace

class User : public QTimer
{
    Q_OBJECT

public:
    User() : m_steps(qEnvironmentVariable("KEST_CAD_USER").split(QLatin1Char('\n')))
    {
        connect(this, &QTimer::timeout, this, &User::go);
        start(10);
    }

private:
    void go()
    {
        if (m_steps.isEmpty() || !view()) {
            return;
        }
        const QString step = m_steps.first();
        if (canDo(step.section(QLatin1Char(' '), 0, 0), step.section(QLatin1Char(' '), 1))) {
            m_steps.removeFirst();
        }
    }

    // Slots may open boxes, whose event loops this goes on in.
    bool canDo(const QString& verb, const QString& object)
    {
        if (verb == QLatin1String("click")) {
            return later(shownButton(object), &QAbstractButton::click);
        }
        if (verb == QLatin1String("trigger")) {
            return later(shown<QMainWindow>(QString())->findChild<QAction*>(object),
                         &QAction::trigger);
        }
        if (verb == QLatin1String("read")) {
            return read(object);
        }
        if (verb == QLatin1String("await")) {
            const auto* const label = shown<QLabel>(QStringLiteral("renderingName"));
            return label && label->text() == object;
        }
        if (verb == QLatin1String("key")) {
            return press(QKeySequence(object)[0]);
        }
        if (verb == QLatin1String("grab")) {
            return isAtRest() && (object.isEmpty() || m_picture.save(object));
        }
        if (verb == QLatin1String("moved")) {
            return view()->grab().toImage() != m_picture;
        }
        if (verb == QLatin1String("menus")) {
            return readMenus();
        }
        if (verb == QLatin1String("boxes")) {
            say(shown<QMessageBox>(QString()) ? QStringLiteral("a box") : QStringLiteral("no box"));
            return true;
        }
        return later(shown<QMainWindow>(QString()), &QWidget::close); // the verb is "close"
    }

    // The view draws again, and more smoothly, a little after something has moved.
    bool isAtRest()
    {
        const QImage picture = view()->grab().toImage();
        if (picture != m_picture || !m_rest.isValid()) {
            m_picture = picture;
            m_rest.start();
        }
        const bool isResting = m_rest.hasExpired(restMilliseconds);
        if (isResting) {
            m_rest.invalidate();
        }
        return isResting;
    }

    template <typename Object, typename Slot>
    bool later(Object* object, Slot slot)
    {
        if (object) {
            QTimer::singleShot(0, object, slot);
        }
        return object != nullptr;
    }

    static bool press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(view(), &event);
        return true;
    }

    static bool read(const QString& name)
    {
        const auto* const label = shown<QLabel>(name);
        const auto* const page = shown<QTextBrowser>(QString());
        if (label) {
            say(name + QLatin1String(" = ") + label->text());
        } else if (page && name == QLatin1String("help")) {
            say(QLatin1String("help = ") + page->toPlainText().section(QLatin1Char('\n'), 0, 0));
        }
        return label || (page && name == QLatin1String("help"));
    }

    static bool readMenus()
    {
        QStringList menus;
        const QList<QAction*> actions = shown<QMainWindow>(QString())->menuBar()->actions();
        for (const QAction* const action : actions) {
            menus += action->text();
        }
        say(QLatin1String("menus = ") + menus.join(QLatin1Char(' ')));
        return true;
    }

    QStringList m_steps;
    QImage m_picture;
    QElapsedTimer m_rest;
};

class CadUserPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "cad_user.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override
    {
        return new User;
    }
};

#include "cad_user.moc"
