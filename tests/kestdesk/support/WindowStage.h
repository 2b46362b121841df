// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <BoxAnswerer.h>

#include <ApplicationIdentity.h>
#include <MainWindow.h>
#include <Services.h>

#include <common_KestProcessDialog.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QTableView>

#include <functional>
#include <memory>

/// Does something with every modal dialog that comes up while it lives, once for each.
class ModalVisitor
{
public:
    using Visit = std::function<void(QDialog& dialog)>;

    explicit ModalVisitor(Visit visit) : m_visit(std::move(visit))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(2);
    }

private:
    void look()
    {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog != nullptr && !dialog->property("visited").toBool()) {
            dialog->setProperty("visited", true);
            m_visit(*dialog);
        }
    }

    Visit m_visit;
    QTimer m_timer;
};

/// kestdesk's window as a person has it before them, with an installation whose components are fake
/// ones and with a user's folder of its own.
class WindowStage
{
public:
    static constexpr int mostRunsAtOnce = 9;     ///< so that runs need not wait for each other here
    static constexpr int activationTime = 30000; ///< ms, on a machine with much to do

    WindowStage()
    {
        for (const char* const name : {"KEST_HOME", "KEST_USER_HOME", "KEST_TEST_MARK"}) {
            qputenv(name, m_desk.environment().value(text(name)).toLocal8Bit());
        }
        for (const char* const name : {"runkest", "prekest", "optkest", "amrkest"}) {
            if (!Processes::install(text(FAKE_COMPONENT), program(name))) {
                qFatal("no component");
            }
        }
        m_services = std::make_unique<Services>(
            ApplicationIdentity{text("kestdesk"), text("models/dipole.nec")}, false);
        setPreference("runsAtOnce", mostRunsAtOnce);
    }

    /// Whatever a failed test has left behind is ended.
    ~WindowStage()
    {
        close();
        endRuns(SIGKILL);
    }

    /// As another program might.
    void endRuns(int signalNumber) const { Processes::send(signalNumber, m_desk.processes()); }

    WindowStage(const WindowStage&) = delete;
    WindowStage& operator=(const WindowStage&) = delete;

    const Desk& desk() const { return m_desk; }
    QString program(const char* name) const { return m_desk.path(text("home/bin/") + text(name)); }

    /// A model for the fake components, which do what its word says.
    QString model(const char* name, const QByteArray& word) const
    {
        writeFile(m_desk.path(text("models/") + text(name)), word);
        return m_desk.path(text("models/") + text(name));
    }

    void setOption(const char* name, const QString& value) const
    {
        QSettings settings(m_desk.path("user/kest.ini"), QSettings::IniFormat);
        settings.setValue(text("options/") + text(name), value);
    }

    void setPreference(const char* name, const QVariant& value) const
    {
        QSettings settings(m_desk.path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("preferences/") + text(name), value);
    }

    /// Also before a run is stopped that has just started.
    void askFromTheStart() const { setPreference("askAfterSeconds", 0); }

    void open()
    {
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get(), activationTime));
    }

    void close() { m_window.reset(); }

    MainWindow& window() const { return *m_window; }

    template <typename Widget>
    Widget* find(const char* name) const
    {
        return m_window->findChild<Widget*>(text(name));
    }

    void typeModel(const QString& path) const
    {
        auto* const edit = find<QLineEdit>("modelEdit");
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(edit, path);
    }

    /// A key in the window; the dialog of a run may have been before it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QApplication::setActiveWindow(m_window.get());
        QTest::keyClick(m_window.get(), key, modifiers);
    }

    /// A key where the focus of the window is.
    void pressFocused(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QApplication::setActiveWindow(m_window.get());
        QTest::keyClick(m_window->focusWidget(), key, modifiers);
    }

    void pressRun() const { press(Qt::Key_F5); }
    void pressStop() const { press(Qt::Key_F5, Qt::ShiftModifier); }

    void run(const QString& path) const
    {
        typeModel(path);
        pressRun();
    }

    /// The row of a run in the list, which shows the newest one first. The runs are numbered as
    /// they were started, from 0 on.
    int rowOf(int run) const { return runCount() - 1 - run; }

    /// What the list of runs shows.
    QString cell(int run, const char* column) const
    {
        const QAbstractItemModel* const runs = find<QTableView>("runList")->model();
        for (int i = 0; i < runs->columnCount(); ++i) {
            if (runs->headerData(i, Qt::Horizontal).toString() == text(column)) {
                return runs->index(rowOf(run), i).data().toString();
            }
        }
        return text("no such column");
    }

    QString state(int run = 0) const { return cell(run, "State"); }
    int runCount() const { return find<QTableView>("runList")->model()->rowCount(); }
    QString outcomeText() const { return find<QLabel>("outcomeLabel")->text(); }

    QList<common_KestProcessDialog*> dialogs() const
    {
        return m_window->findChildren<common_KestProcessDialog*>();
    }

    template <typename Widget>
    static Widget* inDialog(const common_KestProcessDialog* dialog, const char* name)
    {
        return dialog->findChild<Widget*>(text(name));
    }

    /// Does something in the running application. Whether it quits then.
    template <typename Deed>
    static bool quits(Deed deed, int limit = 30000)
    {
        constexpr int stayed = 77;
        QTimer::singleShot(0, qApp, deed);
        QTimer watchdog;
        QObject::connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(stayed); });
        watchdog.start(limit);
        return QApplication::exec() != stayed;
    }

    static BoxAnswerer::Answer pressing(Qt::Key key)
    {
        return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
    }

    /// What a user does who wants what the box asks.
    static BoxAnswerer::Answer agreeing()
    {
        return [](QMessageBox& box) {
            const QList<QAbstractButton*> buttons = box.buttons();
            for (QAbstractButton* const button : buttons) {
                if (box.buttonRole(button) == QMessageBox::YesRole) {
                    button->click();
                    return;
                }
            }
        };
    }

private:
    Desk m_desk;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<MainWindow> m_window;
};
