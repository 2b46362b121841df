// SPDX-License-Identifier: MIT
#include <BoxAnswerer.h>
#include <SettingsFolders.h>
#include <SpecialFile.h>
#include <Text.h>

#include <MachinesDialog.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QtTest>

#include <memory>

class tst_machines_dialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup()
    {
        m_dialog.reset();
        m_folders.reset();
    }

    void beginsWithTheUsersFile()
    {
        writeUsersFile("node1:4\n");
        writeInstallationsFile("shared:2\n");
        open();
        QCOMPARE(edit()->toPlainText(), text("node1:4\n"));
        QVERIFY(origin().contains(usersFile()));
    }

    void beginsWithTheInstallationsFileWhereTheUserHasNone()
    {
        writeInstallationsFile("shared:2\n");
        open();
        QCOMPARE(edit()->toPlainText(), text("shared:2\n"));
        QVERIFY(origin().contains(text("copy of")));
        QVERIFY(!QFile::exists(usersFile()));
        click("save");
        QCOMPARE(SettingsFolders::read(usersFile()), QByteArray("shared:2\n"));
        QVERIFY(!m_dialog->isVisible());
    }

    void beginsSomehowWhereThereIsNone()
    {
        open();
        QVERIFY(edit()->toPlainText().contains(text("host:count")));
        edit()->appendPlainText(text("node1:2"));
        click("save");
        QVERIFY(SettingsFolders::read(usersFile()).contains("node1:2"));
    }

    void makesTheUsersFolderWhereItIsMissing()
    {
        m_folders->info.userSettings += text("/a/b");
        open();
        edit()->setPlainText(text("node1:2"));
        click("save");
        QCOMPARE(SettingsFolders::read(usersFile()), QByteArray("node1:2"));
    }

    void saysWhatIsWrongLineByLine()
    {
        open();
        edit()->setPlainText(text("node1:4\nnode2:two\n# -x\n-x:1\nnode1:2\n"));
        auto* const findings = m_dialog->findChild<QListWidget*>(text("machinesFindings"));
        QStringList lines;
        for (int i = 0; i < findings->count(); ++i) {
            lines.append(findings->item(i)->text().section(QLatin1Char(':'), 0, 0));
        }
        QCOMPARE(lines, QStringList({text("Line 2"), text("Line 4"), text("Line 5")}));
        QCOMPARE(m_dialog->findChild<QLabel*>(text("machinesSummary"))->text(),
                 text("1 host, 6 processes; 2 errors, 1 warning"));
        QCOMPARE(edit()->extraSelections().size(), 3);
        QCOMPARE(edit()->extraSelections().at(1).cursor.block().text(), text("-x:1"));
        edit()->setPlainText(text("node1:1"));
        QCOMPARE(findings->count(), 0);
        QCOMPARE(edit()->extraSelections().size(), 0);
        QCOMPARE(m_dialog->findChild<QLabel*>(text("machinesSummary"))->text(),
                 text("1 host, 1 process; 0 errors, 0 warnings"));
    }

    void aFindingLeadsToItsLine()
    {
        open();
        edit()->setPlainText(text("node1:4\nnode2:two\n"));
        auto* const findings = m_dialog->findChild<QListWidget*>(text("machinesFindings"));
        findings->setCurrentRow(0);
        QCOMPARE(edit()->textCursor().blockNumber(), 1);
    }

    void errorsAreSavedOnlyWhenTheUserWantsIt()
    {
        writeUsersFile("node1:4\n");
        open();
        edit()->setPlainText(text("node1:four"));
        BoxAnswerer answers({text("Go on editing"), text("&Save it anyway")});
        click("save");
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(SettingsFolders::read(usersFile()), QByteArray("node1:4\n"));
        click("save");
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(SettingsFolders::read(usersFile()), QByteArray("node1:four"));
        QCOMPARE(answers.texts.size(), 2);
    }

    void aChangeBySomebodyElseIsNotLost_data()
    {
        QTest::addColumn<bool>("wasThere");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("closed");
        for (const bool wasThere : {true, false}) {
            const QString before = wasThere ? text("changed, ") : text("made, ");
            QTest::newRow(qPrintable(before + text("overwritten")))
                << wasThere << "&Overwrite it" << QByteArray("mine:1") << "mine:1" << true;
            QTest::newRow(qPrintable(before + text("loaded")))
                << wasThere << "&Load it and lose what I typed" << QByteArray("theirs:2")
                << "theirs:2" << false;
            QTest::newRow(qPrintable(before + text("neither")))
                << wasThere << "Go on editing" << QByteArray("theirs:2") << "mine:1" << false;
        }
    }

    void aChangeBySomebodyElseIsNotLost()
    {
        QFETCH(bool, wasThere);
        QFETCH(QString, answer);
        QFETCH(QByteArray, file);
        QFETCH(QString, shown);
        QFETCH(bool, closed);
        if (wasThere) {
            writeUsersFile("node1:4\n");
        }
        open();
        edit()->setPlainText(text("mine:1"));
        writeUsersFile("theirs:2");
        BoxAnswerer answers({answer});
        click("save");
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(usersFile()));
        QCOMPARE(SettingsFolders::read(usersFile()), file);
        QCOMPARE(edit()->toPlainText(), shown);
        QCOMPARE(!m_dialog->isVisible(), closed);
    }

    void whatCannotBeSavedStaysInTheDialog()
    {
        open();
        edit()->setPlainText(text("mine:1"));
        QVERIFY(QDir().rmdir(m_folders->info.userSettings));
        SettingsFolders::write(m_folders->info.userSettings, "a file in the folder's place");
        BoxAnswerer answers;
        click("save");
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(text("could not be saved")));
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(edit()->toPlainText(), text("mine:1"));
    }

    void aFolderInTheFilesPlaceIsToldAtOnce()
    {
        QVERIFY(QDir().mkpath(usersFile()));
        open();
        QVERIFY(origin().contains(text("cannot be read")));
    }

    void aPipeInTheFilesPlaceIsToldAtOnce()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, usersFile());
        open();
        QVERIFY(origin().contains(text("it is not a regular file")));
    }

    void whatWasTypedIsThrownAwayOnlyAfterAQuestion()
    {
        open();
        edit()->setPlainText(text("mine:1"));
        BoxAnswerer answers({text("Go on editing"), text("&Throw the changes away")});
        click("cancel");
        QVERIFY(m_dialog->isVisible());
        click("cancel");
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(!QFile::exists(usersFile()));
        QCOMPARE(answers.texts.size(), 2);
    }

    void withoutAChangeNobodyIsAsked()
    {
        writeUsersFile("node1:4\r\nnode2\r\n");
        open();
        BoxAnswerer answers;
        click("cancel");
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(answers.texts.size(), 0);
        QCOMPARE(SettingsFolders::read(usersFile()), unixLines("node1:4\r\nnode2\r\n"));
    }

    void aFileThatIsNoTextIsToldOf()
    {
        writeUsersFile("node1:4\n\xff\xfe\x80\n");
        open();
        QVERIFY(origin().contains(text("no plain text")));
    }

    void everythingHasANameAndIsReachedByTheTabKey()
    {
        open();
        QApplication::setActiveWindow(m_dialog.get());
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QSet<QString> reached;
        for (int i = 0; i < 10; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached.insert(QApplication::focusWidget()->objectName());
        }
        QCOMPARE(reached, QSet<QString>({text("machinesText"), text("machinesFindings"),
                                         text("save"), text("cancel")}));
        for (const char* const name : {"machinesText", "machinesFindings"}) {
            QVERIFY(!m_dialog->findChild<QWidget*>(text(name))->accessibleName().isEmpty());
        }
    }

private:
    QString usersFile() const { return m_folders->info.userSettings + text("/machines.kest"); }
    void writeUsersFile(const QByteArray& content) const
    {
        QVERIFY(SettingsFolders::write(usersFile(), content));
    }
    void writeInstallationsFile(const QByteArray& content) const
    {
        const QString folder = m_folders->info.installation + text("/shared/mpi");
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(SettingsFolders::write(folder + text("/machines.kest"), content));
    }

    void open()
    {
        m_dialog = std::make_unique<MachinesDialog>(nullptr);
        m_dialog->show();
    }
    QPlainTextEdit* edit() const { return m_dialog->findChild<QPlainTextEdit*>(); }
    QString origin() const { return m_dialog->findChild<QLabel*>(text("machinesOrigin"))->text(); }
    void click(const char* name) const { m_dialog->findChild<QPushButton*>(text(name))->click(); }

    std::unique_ptr<SettingsFolders> m_folders;
    std::unique_ptr<MachinesDialog> m_dialog;
};

QTEST_MAIN(tst_machines_dialog)
#include "tst_machines_dialog.moc"
