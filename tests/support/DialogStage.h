// SPDX-License-Identifier: MIT
#pragma once

#include <DialogServices.h>
#include <SettingsFolders.h>

#include <common_KestProcessDialog.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>

/// A process runner that also tells its observers what a test wants, without any process.
class TalkingRunner : public common_ProcessRunner<common_KestProcessMessage>
{
public:
    void start(const QString& executable = QStringLiteral("/suite/bin/runkest"),
               const QStringList& arguments = {QStringLiteral("dipole.nec")})
    {
        setExecutable(executable);
        setArguments(arguments);
        notifyProcessStarted();
    }

    void say(common_IProcessMessage::Type type, const QString& text)
    {
        notifyProcessMessageReceived(common_KestProcessMessage(type, text));
    }

    void output(const QString& text) { say(common_IProcessMessage::Output, text); }
    void error(const QString& text) { say(common_IProcessMessage::Error, text); }
    void warning(const QString& text) { say(common_IProcessMessage::Warning, text); }
    void notice(const QString& text) { say(common_IProcessMessage::Notice, text); }
    void total(const QString& text) { say(common_IProcessMessage::TotalPercentage, text); }
    void end() { notifyProcessDone(); }
    void fail() { notifyFailedProcessStarted(); }
};

/// A process dialog with the application's services around it, and what is in it by name.
class DialogStage
{
public:
    explicit DialogStage(QWidget* parent = nullptr)
        : runner(new TalkingRunner), dialog(new common_KestProcessDialog(runner, parent))
    {}

    DialogStage(const DialogStage&) = delete;
    DialogStage& operator=(const DialogStage&) = delete;

    ~DialogStage()
    {
        if (runner && runner->isRunning()) {
            runner->stopProcess();
        }
        delete dialog;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Starts a child that does the commands of kest_test_child.
    bool run(const QStringList& commands) const
    {
        runner->setExecutable(QLatin1String(KEST_TEST_CHILD));
        runner->setArguments(commands);
        return runner->run();
    }

    void openDetails() const { details()->setChecked(true); }

    QPushButton* ok() const { return button("buttonOk"); }
    QPushButton* stop() const { return button("buttonStop"); }
    QPushButton* details() const { return button("buttonDetails"); }
    QProgressBar* bar(const char* name) const
    {
        return dialog->findChild<QProgressBar*>(QLatin1String(name));
    }
    QLabel* info() const { return dialog->findChild<QLabel*>(QStringLiteral("infoLabel")); }
    QTabWidget* tabs() const { return dialog->findChild<QTabWidget*>(); }
    QTextEdit* output() const { return qobject_cast<QTextEdit*>(tabs()->widget(0)); }
    QTableWidget* notices() const { return qobject_cast<QTableWidget*>(tabs()->widget(1)); }
    QTableWidget* warnings() const { return qobject_cast<QTableWidget*>(tabs()->widget(2)); }
    QTextEdit* errors() const { return qobject_cast<QTextEdit*>(tabs()->widget(3)); }
    QString text() const { return output()->toPlainText(); }

    SettingsFolders folders;
    FakeApplication application;
    FakeIconUtility icons;
    FakePixmapUtility pixmaps;
    common_ActivePtr<TalkingRunner> runner;
    QPointer<common_KestProcessDialog> dialog;

private:
    QPushButton* button(const char* name) const
    {
        return dialog->findChild<QPushButton*>(QLatin1String(name));
    }
};
