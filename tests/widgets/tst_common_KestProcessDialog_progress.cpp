// SPDX-License-Identifier: MIT
#include "DialogParts.h"

#include <BoxAnswerer.h>
#include <BoxReader.h>
#include <DialogStage.h>

#include <QAction>
#include <QClipboard>
#include <QGroupBox>
#include <QLayout>
#include <QtTest>

#include <functional>

class tst_common_KestProcessDialog_progress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsOfAFailedStart();
    void showsPercentages_data();
    void showsPercentages();
    void keepsPercentagesThatCannotBeSeen();
    void showsErrors();
    void countsWarningsAndNotices();
    void showsTheBoxesOfOneWhenTheDetailsClose();
    void acceptsNoVariables_data();
    void acceptsNoVariables();
    void tellsTheOutcome_data();
    void tellsTheOutcome();
    void hidesTheProgress();
    void showsTheProgress();
    void showsTheInfoLabel();
    void reactsToWholeClicks();
    void copiesTheCommand();
    void stopsObservingAtItsEnd();
    void holdsTheRunner();
    void worksWithAClipboardThatNobodyOwns();
    void worksWithoutIconTheme();
};

void tst_common_KestProcessDialog_progress::tellsOfAFailedStart()
{
    QWidget window;
    BoxReader boxes;
    const Stage stage(&window);
    stage.runner->setExecutable(stage.folders.path() + QStringLiteral("/missing %2"));
    stage.runner->setArguments({QStringLiteral("one"), QStringLiteral("two words")});
    QVERIFY(!stage.runner->run());
    const QVector<BoxReader::Box> shown = boxes.take();
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].title, QStringLiteral("Information"));
    QCOMPARE(shown[0].text,
             QStringLiteral("Process\n    %1/missing %2\ncould not be started with the following "
                            "arguments:\n    one two words.\nPlease ensure that Morlan Kest is "
                            "fully installed, and that\nthe KEST_HOME environment variable is set "
                            "correctly.")
                 .arg(stage.folders.path()));
    QVERIFY(shown[0].details.isEmpty());
    QCOMPARE(shown[0].icon, QMessageBox::Information);
    QCOMPARE(shown[0].parent, &window);
    QVERIFY(!stage.dialog->isVisible());
    QVERIFY(stage.ok()->isEnabled());
    QVERIFY(!stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->property("squishValue").isValid());
}

void tst_common_KestProcessDialog_progress::showsPercentages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value"); // 7 before

    QTest::newRow("usual") << QStringLiteral("45") << 45;
    QTest::newRow("none") << QStringLiteral("0") << 0;
    QTest::newRow("all") << QStringLiteral("100") << 100;
    QTest::newRow("no number") << QStringLiteral("half") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("ignored") << QStringLiteral("-1") << 7;
    QTest::newRow("too much") << QStringLiteral("999") << 7;
}

void tst_common_KestProcessDialog_progress::showsPercentages()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    const QPair<common_IProcessMessage::Type, const char*> bars[] = {
        {common_IProcessMessage::Percentage, "progressBar"},
        {common_IProcessMessage::TotalPercentage, "totalProgressBar"}};
    for (const auto& bar : bars) {
        stage.runner->say(bar.first, QStringLiteral("7"));
        QCOMPARE(stage.bar(bar.second)->value(), 7);
        stage.runner->say(bar.first, text);
        QCOMPARE(stage.bar(bar.second)->value(), value);
    }
}

void tst_common_KestProcessDialog_progress::keepsPercentagesThatCannotBeSeen()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->say(common_IProcessMessage::Percentage, QStringLiteral("30"));
    stage.details()->setChecked(false);
    stage.runner->say(common_IProcessMessage::Percentage, QStringLiteral("40"));
    stage.runner->total(QStringLiteral("50"));
    QCOMPARE(stage.bar("progressBar")->value(), 30);
    QCOMPARE(stage.bar("totalProgressBar")->value(), 50);
}

void tst_common_KestProcessDialog_progress::showsErrors()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(stage.warningsBox()->isVisible());
    stage.runner->error(QStringLiteral("bad value"));
    QCOMPARE(stage.visible(), names(openDetails));
    QCOMPARE(stage.errors()->toPlainText(), QStringLiteral("bad value"));
}

void tst_common_KestProcessDialog_progress::countsWarningsAndNotices()
{
    const Stage stage;
    stage.runner->start();
    const auto count = [](const QGroupBox* box) {
        return qobject_cast<QLabel*>(box->layout()->itemAt(1)->widget())->text();
    };
    stage.runner->warning(QStringLiteral("without the word"));
    QVERIFY(stage.warningsBox()->isVisible());
    QCOMPARE(count(stage.warningsBox()), QStringLiteral("0"));
    QVERIFY(!stage.noticesBox()->isVisible());
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    QVERIFY(stage.noticesBox()->isVisible());
    QCOMPARE(count(stage.noticesBox()), QStringLiteral("2"));
    stage.runner->notice(QStringLiteral("without the word"));
    QCOMPARE(count(stage.noticesBox()), QStringLiteral("2"));

    stage.openDetails();
    QVERIFY(!stage.noticesBox()->isVisible());
    QVERIFY(!stage.warningsBox()->isVisible());
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(!stage.warningsBox()->isVisible());
    QCOMPARE(count(stage.warningsBox()), QStringLiteral("1"));

    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(stage.warningsBox()->isVisible());
}

void tst_common_KestProcessDialog_progress::showsTheBoxesOfOneWhenTheDetailsClose()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(!stage.warningsBox()->isVisible());
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(stage.warningsBox()->isVisible());
}

void tst_common_KestProcessDialog_progress::acceptsNoVariables_data()
{
    QTest::addColumn<QString>("deed");

    QTest::newRow("variable") << QStringLiteral("variable");
    QTest::newRow("unknown type") << QStringLiteral("unknown");
}

void tst_common_KestProcessDialog_progress::acceptsNoVariables()
{
    QFETCH(QString, deed);
    const QTemporaryDir folder;
    const QString words = Child::lastWords(deed, folder.path());
    QVERIFY2(words.contains(QStringLiteral("src/process/common_KestProcessDialog.cpp (")) &&
                 words.contains(QStringLiteral("): Assertion failed: 0\n")),
             qPrintable(words));
}

void tst_common_KestProcessDialog_progress::tellsTheOutcome_data()
{
    QTest::addColumn<QStringList>("percentages");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("none") << QStringList() << QStringLiteral("fault");
    QTest::newRow("99") << strings({"50", "99"}) << QStringLiteral("fault");
    QTest::newRow("100") << strings({"50", "100"}) << QStringLiteral("valid");
    QTest::newRow("100, then less") << strings({"100", "99"}) << QStringLiteral("fault");
    QTest::newRow("100, then too much") << strings({"100", "101"}) << QStringLiteral("valid");
}

void tst_common_KestProcessDialog_progress::tellsTheOutcome()
{
    QFETCH(QStringList, percentages);
    QFETCH(QString, outcome);
    const Stage stage;
    stage.runner->start();
    for (const QString& percentage : qAsConst(percentages)) {
        stage.runner->total(percentage);
    }
    QVERIFY(!stage.ok()->property("squishValue").isValid());
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    stage.runner->end();
    QCOMPARE(stage.outcome(), outcome);
    QCOMPARE(iconColour(stage.ok()), Picture::colour(outcome).rgb());
    QVERIFY(stage.ok()->isEnabled());
    QVERIFY(stage.ok()->hasFocus());
    QVERIFY(!stage.stop()->isEnabled());
}

void tst_common_KestProcessDialog_progress::hidesTheProgress()
{
    const Stage stage;
    stage.dialog->setProgressBarVisible(false);
    stage.runner->start();
    QVERIFY(stage.details()->isChecked());
    QCOMPARE(stage.visible(), names("info, output, ok, stop"));
    QVERIFY(!stage.storedDetailsShown());
    stage.runner->total(QStringLiteral("10"));
    stage.runner->end();
    QCOMPARE(stage.outcome(), QStringLiteral("valid"));
}

void tst_common_KestProcessDialog_progress::showsTheProgress()
{
    const Stage stage;
    stage.openDetails();
    stage.dialog->setProgressBarVisible(true);
    QVERIFY(!stage.details()->isChecked());
    QCOMPARE(stage.visible(),
             names("total label, busy, total bar, phase label, bar, details, ok, stop"));
    QCOMPARE(stage.bar("totalProgressBar")->value(), 100);
}

void tst_common_KestProcessDialog_progress::showsTheInfoLabel()
{
    const Stage stage;
    stage.dialog->setInfoLabelVisible(true);
    QVERIFY(!stage.info()->isHidden());
    stage.dialog->setInfoLabelVisible(false);
    QVERIFY(stage.info()->isHidden());
}

// To press the mouse is not enough: a user may let go of it elsewhere.
void tst_common_KestProcessDialog_progress::reactsToWholeClicks()
{
    const Stage stage;
    BoxAnswerer answerer(BoxAnswerer::clicking(QStringLiteral("No")));
    stage.runner->start();
    QTest::mousePress(stage.stop(), Qt::LeftButton);
    QTest::mouseRelease(stage.stop(), Qt::LeftButton, Qt::NoModifier, QPoint(-50, -50));
    QVERIFY(answerer.texts.isEmpty());
    QTest::mouseClick(stage.stop(), Qt::LeftButton);
    QCOMPARE(answerer.texts.size(), 1);

    QTest::mousePress(stage.details(), Qt::LeftButton);
    QVERIFY(stage.tabs()->isHidden());
    QTest::mouseRelease(stage.details(), Qt::LeftButton);
    QVERIFY(stage.tabs()->isVisible());
    QVERIFY(stage.storedDetailsShown());

    stage.runner->end();
    QTest::mousePress(stage.ok(), Qt::LeftButton);
    QVERIFY(stage.dialog->isVisible());
    QTest::mouseRelease(stage.ok(), Qt::LeftButton);
    QTRY_VERIFY(stage.dialog.isNull());
}

void tst_common_KestProcessDialog_progress::copiesTheCommand()
{
    const Stage stage;
    stage.runner->start();
    stage.info()->actions().constFirst()->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("runkest dipole.nec"));
    stage.dialog->setInfoLabel(QStringLiteral("Mine"));
    stage.info()->actions().constFirst()->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("ne"));
}

void tst_common_KestProcessDialog_progress::stopsObservingAtItsEnd()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->output(QStringLiteral("text"));
    delete stage.dialog;
    stage.runner->output(QStringLiteral("text"));
    stage.runner->end();
    QCOMPARE(stage.runner->getRefCount(), 1);
}

void tst_common_KestProcessDialog_progress::holdsTheRunner()
{
    Stage stage;
    QCOMPARE(stage.runner->getRefCount(), 2);
    const int count = common_ProcessRunnerBase::getProcessCount();
    TalkingRunner* const runner = stage.runner.get();
    stage.runner.reset();
    runner->start();
    QVERIFY(stage.dialog->isVisible());
    runner->end();
    delete stage.dialog;
    QCOMPARE(common_ProcessRunnerBase::getProcessCount(), count - 1);
}

void tst_common_KestProcessDialog_progress::worksWithAClipboardThatNobodyOwns()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->output(QStringLiteral("a line"));
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    const std::function<void()> copies[] = {
        [&stage] { stage.info()->actions().constFirst()->trigger(); },
        [&stage] {
            stage.output()->selectAll();
            stage.output()->copy();
        },
        [&stage] {
            stage.warnings()->selectAll();
            stage.warnings()->actions().constFirst()->trigger();
        },
    };
    QStringList copied;
    for (const auto& copy : copies) {
        QApplication::clipboard()->clear();
        QCOMPARE(QApplication::clipboard()->text(), QString());
        QVERIFY(!stage.dialog->grab().isNull());
        copy();
        copied.append(QApplication::clipboard()->text().trimmed());
    }
    QCOMPARE(copied, (QStringList{QStringLiteral("runkest dipole.nec"),
                                  QStringLiteral("a line\nWARNING 1: text"),
                                  QStringLiteral("WARNING 1: text")}));
}

void tst_common_KestProcessDialog_progress::worksWithoutIconTheme()
{
    Stage stage;
    delete stage.dialog;
    stage.icons.isEmpty = true;
    stage.dialog = new common_KestProcessDialog(stage.runner, nullptr);
    stage.runner->start();
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    stage.runner->end();
    QVERIFY(stage.ok()->icon().isNull());
    QCOMPARE(stage.outcome(), QStringLiteral("fault"));
    QVERIFY(!stage.dialog->grab().isNull());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        return doDeed(Child::deed());
    }
    tst_common_KestProcessDialog_progress test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_KestProcessDialog_progress.moc"
