// SPDX-License-Identifier: MIT
#include "DialogParts.h"

#include <common_ComponentsLaunchOptions.h>

#include <QtTest>

class tst_common_KestProcessDialog_details : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItselfWhenTheProcessStarts();
    void staysHiddenInBatchMode();
    void movesNoBarInBatchMode();
    void namesTheProcess_data();
    void namesTheProcess();
    void keepsTheTitleOfTheCaller();
    void keepsTheInfoTextOfTheCaller();
    void opensTheDetailsAsTheLastTime_data();
    void opensTheDetailsAsTheLastTime();
    void keepsTheDetailsClosedWhereTheyCannotBeOpened();
    void storesADetailsClick();
    void storesNothingElseWithADetailsClick();
    void storesNothingWhileTheSettingsAreLocked();
    void storesNothingWhenAnErrorOpensTheDetails();
    void togglesTheDetails();
};

void tst_common_KestProcessDialog_details::showsItselfWhenTheProcessStarts()
{
    const Stage stage;
    stage.runner->start();
    QVERIFY(stage.dialog->isVisible());
    QVERIFY(!stage.dialog->isModal());
    QVERIFY(stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->isEnabled());
    QCOMPARE(stage.visible(), names(closedDetails));
}

void tst_common_KestProcessDialog_details::staysHiddenInBatchMode()
{
    Stage stage;
    stage.application.nonInteractive = true;
    stage.storeDetailsShown(true);
    stage.runner->start();
    QVERIFY(!stage.details()->isChecked());
    stage.runner->output(QStringLiteral("text"));
    stage.runner->error(QStringLiteral("error"));
    QVERIFY(!stage.dialog->isVisible());
    QCOMPARE(stage.text(), QStringLiteral("text\nerror"));
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(!stage.tabs()->isHidden() && !stage.tabs()->isVisible());
    QVERIFY(!stage.warningsBox()->isHidden());
    stage.runner->end();
    QVERIFY(!stage.dialog->isVisible());
    QVERIFY(stage.ok()->isEnabled());
}

void tst_common_KestProcessDialog_details::movesNoBarInBatchMode()
{
    Stage stage;
    stage.application.nonInteractive = true;
    stage.runner->start();
    stage.runner->total(QStringLiteral("100"));
    QVERIFY(stage.bar("totalProgressBar")->value() < 1);
    stage.runner->end();
    QCOMPARE(stage.outcome(), QStringLiteral("fault"));
}

void tst_common_KestProcessDialog_details::namesTheProcess_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("info");

    QTest::newRow("usual") << QStringLiteral("/suite/bin/runkest") << strings({"a.nec", "-np", "2"})
                           << QStringLiteral("Executing runkest")
                           << QStringLiteral("> runkest a.nec -np 2");
    QTest::newRow("extension") << QStringLiteral("C:/suite/bin/runkest.exe") << strings({"a b"})
                               << QStringLiteral("Executing runkest")
                               << QStringLiteral("> runkest.exe a b");
    QTest::newRow("several dots") << QStringLiteral("/suite/bin/runkest.2.exe") << strings({"a"})
                                  << QStringLiteral("Executing runkest")
                                  << QStringLiteral("> runkest.2.exe a");
    QTest::newRow("no arguments") << QStringLiteral("runkest") << QStringList()
                                  << QStringLiteral("Executing runkest")
                                  << QStringLiteral("> runkest ");
    QTest::newRow("blank in the path")
        << QStringLiteral("/my suite/run kest") << strings({""})
        << QStringLiteral("Executing run kest") << QStringLiteral("> run kest ");
}

void tst_common_KestProcessDialog_details::namesTheProcess()
{
    QFETCH(QString, executable);
    QFETCH(QStringList, arguments);
    const Stage stage;
    stage.runner->start(executable, arguments);
    QTEST(stage.dialog->windowTitle(), "title");
    QTEST(stage.info()->text(), "info");
}

void tst_common_KestProcessDialog_details::keepsTheTitleOfTheCaller()
{
    const Stage stage;
    stage.dialog->setTitle(QStringLiteral("Mine"));
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Mine"));
    stage.runner->start();
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Mine"));
    stage.runner->end();
    stage.dialog->setTitle(QString());
    QVERIFY(stage.dialog->windowTitle().isEmpty());
    stage.runner->start();
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Executing runkest"));
}

void tst_common_KestProcessDialog_details::keepsTheInfoTextOfTheCaller()
{
    const Stage stage;
    stage.dialog->setInfoLabel(QStringLiteral("Mine"));
    QCOMPARE(stage.info()->text(), QStringLiteral("Mine"));
    stage.runner->start();
    QCOMPARE(stage.info()->text(), QStringLiteral("Mine"));
    stage.runner->end();
    stage.dialog->setInfoLabel(QString());
    QVERIFY(stage.info()->text().isEmpty());
    stage.runner->start();
    QCOMPARE(stage.info()->text(), QStringLiteral("> runkest dipole.nec"));
}

void tst_common_KestProcessDialog_details::opensTheDetailsAsTheLastTime_data()
{
    QTest::addColumn<bool>("shown");

    QTest::newRow("shown") << true;
    QTest::newRow("hidden") << false;
}

void tst_common_KestProcessDialog_details::opensTheDetailsAsTheLastTime()
{
    QFETCH(bool, shown);
    const Stage stage;
    stage.storeDetailsShown(shown);
    const auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    stage.runner->start();
    QCOMPARE(stage.details()->isChecked(), shown);
    QCOMPARE(stage.visible(), names(shown ? openDetails : closedDetails));
    QCOMPARE(stage.storedDetailsShown(), shown);

    stage.storeDetailsShown(!shown); // for the next start
    stage.runner->start();
    QCOMPARE(stage.details()->isChecked(), !shown);
}

void tst_common_KestProcessDialog_details::keepsTheDetailsClosedWhereTheyCannotBeOpened()
{
    const Stage stage;
    stage.storeDetailsShown(false);
    stage.dialog->setProgressBarVisible(false);
    stage.runner->start();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.tabs()->isVisible());
}

void tst_common_KestProcessDialog_details::storesADetailsClick()
{
    const Stage stage;
    stage.runner->start();
    stage.details()->click();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.storedDetailsShown());
    stage.details()->click();
    QVERIFY(!stage.storedDetailsShown());
    stage.details()->click();
    QVERIFY(stage.storedDetailsShown());
    QVERIFY(common_ComponentsLaunchOptions::create(ReadWriteAccess));
}

void tst_common_KestProcessDialog_details::storesNothingElseWithADetailsClick()
{
    const Stage stage;
    SettingsFolders::write(stage.folders.userFile(), "[options]\nRunParallel=true\n"
                                                     "[of another]\nkey=value\n");
    stage.runner->start();
    stage.details()->click();
    QVERIFY(stage.storedDetailsShown());
    const QSettings file(stage.folders.userFile(), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("options/RunParallel")).toBool(), true);
    QCOMPARE(file.value(QStringLiteral("of another/key")).toString(), QStringLiteral("value"));
}

void tst_common_KestProcessDialog_details::storesNothingWhileTheSettingsAreLocked()
{
    const Stage stage;
    stage.runner->start();
    const auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    stage.details()->click();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.tabs()->isVisible());
    QVERIFY(!stage.storedDetailsShown());
}

void tst_common_KestProcessDialog_details::storesNothingWhenAnErrorOpensTheDetails()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->error(QStringLiteral("bad value"));
    QVERIFY(stage.details()->isChecked());
    QVERIFY(!stage.storedDetailsShown());
}

void tst_common_KestProcessDialog_details::togglesTheDetails()
{
    const Stage stage;
    stage.runner->start();
    const QSize closed = stage.dialog->size();
    stage.details()->setChecked(true);
    QCOMPARE(stage.visible(), names(openDetails));
    QVERIFY(stage.dialog->height() > closed.height() + 200);
    stage.details()->setChecked(false);
    QCOMPARE(stage.visible(), names(closedDetails));
    QTRY_COMPARE(stage.dialog->size(), closed);
}

QTEST_MAIN(tst_common_KestProcessDialog_details)
#include "tst_common_KestProcessDialog_details.moc"
