// SPDX-License-Identifier: MIT
#include "LaunchOptionsStage.h"

#include <BoxAnswerer.h>
#include <SettingsFolders.h>
#include <SettingsProcess.h>
#include <SpecialFile.h>

#include <LaunchOptionsDialog.h>
#include <LaunchOptionsFile.h>

#include <common_PropertyFactory.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QtTest>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace {

// Visits the launch options whenever they are the modal dialog.
class DialogVisitor
{
public:
    explicit DialogVisitor(const std::function<void(QDialog*)>& visit)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [visit] {
            if (auto* const dialog =
                    qobject_cast<LaunchOptionsDialog*>(QApplication::activeModalWidget())) {
                visit(dialog);
            }
        });
        m_timer.start(2);
    }

private:
    QTimer m_timer;
};

} // namespace

class tst_launch_options_dialog_saving : public QObject, protected LaunchOptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup() { tearDown(); }

    void cancelWritesNothing()
    {
        open();
        m_dialog->show();
        type(editor(text("RunParallel")), text("true"));
        button("cancel")->click();
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(!QFile::exists(m_folders->userFile()));
    }

    void okWritesAndCloses()
    {
        open();
        m_dialog->show();
        type(editor(text("Kest.RemoteHost")), text("node1"));
        button("ok")->click();
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_dialog->result(), static_cast<int>(QDialog::Accepted));
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
    }

    void okWithoutAChangeWritesNothing()
    {
        open();
        button("ok")->click();
        QVERIFY(!QFile::exists(m_folders->userFile()));
    }

    void applyWritesAndStays()
    {
        open();
        m_dialog->show();
        QVERIFY(!button("apply")->isEnabled());
        type(editor(text("Kest.RemoteHost")), text("node1"));
        QVERIFY(button("apply")->isEnabled());
        button("apply")->click();
        QVERIFY(m_dialog->isVisible());
        QVERIFY(!button("apply")->isEnabled());
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
        type(editor(text("Kest.RemoteHost")), text("node2"));
        type(editor(text("Kest.RemoteHost")), text("node1"));
        QVERIFY(!button("apply")->isEnabled());
    }

    void whatCannotBeSavedStaysInTheDialog()
    {
        open();
        m_dialog->show();
        QVERIFY(QDir().mkdir(m_folders->userFile())); // a folder in the file's place
        type(editor(text("Kest.RemoteHost")), text("node1"));
        BoxAnswerer answers;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("kest.ini")));
        button("ok")->click();
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->userFile()));
        QVERIFY(answers.texts.first().contains(text(": it is a directory.")));
        QVERIFY(answers.details.first().contains(text("Kest.RemoteHost")));
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
        QVERIFY(button("apply")->isEnabled());
        QVERIFY(QDir().rmdir(m_folders->userFile()));
        button("ok")->click();
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
    }

    void doesNotOpenWhereTheFileIsNoFile()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_folders->userFile());
        BoxAnswerer answers;
        QVERIFY(!LaunchOptionsDialog::edit(nullptr));
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->userFile() +
                                               text(" cannot be used: it is a pipe.")));
        QCOMPARE(SpecialFile::kindOf(m_folders->userFile()), int(S_IFIFO));
    }

    void restoresNothingFromADefaultIniThatIsNoFile()
    {
        open();
        type(editor(text("Kest.RemoteHost")), text("node1"));
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_folders->defaultFile());
        BoxAnswerer answers;
        button("restoreDefaults")->click();
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->defaultFile()));
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
    }

    void defaultsAreThoseOfTheInstallationAndSavedLater()
    {
        SettingsFolders::write(m_folders->defaultFile(), "[options]\nRunParallel=true\n");
        SettingsFolders::write(m_folders->userFile(), "[options]\nKest.RemoteHost=node1\n");
        const QByteArray before = SettingsFolders::read(m_folders->userFile());
        open();
        type(editor(text("Kest.ProcessPriority")), text("4"));
        BoxAnswerer answers({text("Cancel"), text("Restore &defaults")});
        button("restoreDefaults")->click();
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
        QCOMPARE(shown(editor(text("Kest.ProcessPriority"))), text("4"));
        button("restoreDefaults")->click();
        QCOMPARE(answers.texts.size(), 2);
        QCOMPARE(shown(editor(text("RunParallel"))), text("true"));
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), QString());
        QCOMPARE(shown(editor(text("Kest.ProcessPriority"))), text("2"));
        QCOMPARE(SettingsFolders::read(m_folders->userFile()), before);
        QVERIFY(button("apply")->isEnabled());
        button("apply")->click();
        const QSettings file(m_folders->userFile(), QSettings::IniFormat);
        QCOMPARE(file.value(text("options/RunParallel")).toBool(), true);
        QCOMPARE(file.value(text("options/Kest.RemoteHost")).toString(), QString());
    }

    void anotherProcessKeepsTheFile()
    {
        SettingsProcess other({text("create"), m_folders->info.userSettings});
        QCOMPARE(other.said(), text("made"));
        {
            BoxAnswerer answers({text("Cancel")});
            QVERIFY(!LaunchOptionsDialog::edit(nullptr));
            QCOMPARE(m_folders->session.shown.size(), 1);
            QCOMPARE(m_folders->session.shown.first().message->code(), text("17331"));
            QCOMPARE(answers.texts.size(), 1);
            QVERIFY(answers.texts.first().contains(text("process %1").arg(other.processId())));
        }
        QStringList enabled;
        bool hasOk = true;
        QString banner;
        {
            BoxAnswerer answers({text("&Look at them")});
            const DialogVisitor visitor([&](QDialog* dialog) {
                for (const QString& name : allNames()) {
                    if (dialog->findChild<QWidget*>(name)->isEnabled()) {
                        enabled.append(name);
                    }
                }
                hasOk = dialog->findChild<QWidget*>(text("ok")) != nullptr;
                banner = dialog->findChild<QLabel*>(text("banner"))->text();
                dialog->findChild<QPushButton*>(text("close"))->click();
            });
            QVERIFY(!LaunchOptionsDialog::edit(nullptr));
        }
        QCOMPARE(enabled, QStringList());
        QVERIFY(!hasOk);
        QVERIFY(banner.contains(text("process %1").arg(other.processId())));
        QVERIFY(!QFile::exists(m_folders->userFile()));
        QVERIFY(other.end());
    }

    // As while scripts take and give it back all the time.
    void lockFileThatComesAndGoesIsNoProblem()
    {
        const QString lock = m_folders->userFile() + text(".kestlock");
        std::atomic_bool isOver(false);
        std::thread others([&] {
            while (!isOver) {
                QFile(lock).open(QIODevice::WriteOnly);
                QFile::remove(lock);
            }
        });
        QString problem;
        for (int look = 0; look < 20000 && problem.isEmpty(); ++look) {
            problem = LaunchOptionsFile::lockProblem();
        }
        isOver = true;
        others.join();
        QCOMPARE(problem, QString());
    }

    void theFileIsLockedAsLongAsTheDialogLives()
    {
        open();
        QVERIFY(!Options::create(ReadWriteAccess));
        m_dialog.reset();
        QVERIFY(Options::create(ReadWriteAccess));
    }
};

QTEST_MAIN(tst_launch_options_dialog_saving)
#include "tst_launch_options_dialog_saving.moc"
