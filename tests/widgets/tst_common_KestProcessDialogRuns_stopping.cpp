// SPDX-License-Identifier: MIT
// The process dialog with real processes: how a user stops them.
#include "DialogRuns.h"

#include <BoxAnswerer.h>
#include <DialogStage.h>
#include <SystemSkips.h>

#include <QtTest>

#include <memory>

namespace {

const char* const question = "Are you sure you want to stop the process?";

const char* const asleep = "sleep 600000";

BoxAnswerer::Answer no()
{
    return BoxAnswerer::clicking(QStringLiteral("No"));
}

} // namespace

class tst_common_KestProcessDialogRuns_stopping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksBeforeItStops_data();
    void asksBeforeItStops();
    void stopsWhenTheAnswerIsYes_data();
    void stopsWhenTheAnswerIsYes();
    void asksProperly();
    void asksNothingWhenNothingRuns();
    void asksNothingForOtherKeys();
    void keysThatSlipStopNothing_data();
    void keysThatSlipStopNothing();
    void stopIsReachedByTheKeyboard();
    void okStopsWithoutAsking();
    void okClosesAfterTheEnd();
    void endsWhileTheQuestionIsOpen_data();
    void endsWhileTheQuestionIsOpen();
    void stopsDuringAFlood();
    void isClosedDuringAFlood();
    void isDestroyedDuringAFlood();
    void isDestroyedWhileTheQuestionIsOpen_data();
    void isDestroyedWhileTheQuestionIsOpen();
    void isClosedWhileTheQuestionIsOpen();
    void isClosedWhileASecondDialogRuns();
    void isClosedWithASecondDialogOfTheSameRunner();
};

void tst_common_KestProcessDialogRuns_stopping::asksBeforeItStops_data()
{
    QTest::addColumn<Way>("way");

    QTest::newRow("stop") << Way::Stop;
    QTest::newRow("close") << Way::Close;
    QTest::newRow("escape") << Way::Escape;
}

void tst_common_KestProcessDialogRuns_stopping::asksBeforeItStops()
{
    QFETCH(Way, way);
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer(no());
    go(way, stage);
    QCOMPARE(answerer.texts, QStringList(QLatin1String(question)));
    QTest::qWait(20); // in which nothing may end it
    QVERIFY(stage.dialog && stage.dialog->isVisible());
    QVERIFY(stage.runner->isRunning());
    QVERIFY(stage.stop()->isEnabled());
}

void tst_common_KestProcessDialogRuns_stopping::stopsWhenTheAnswerIsYes_data()
{
    asksBeforeItStops_data();
}

void tst_common_KestProcessDialogRuns_stopping::stopsWhenTheAnswerIsYes()
{
    SKIP_WITHOUT_TERMINATE();
    QFETCH(Way, way);
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer(yes());
    go(way, stage);
    QCOMPARE(answerer.texts, QStringList(QLatin1String(question)));
    QVERIFY(hasEnded(stage));
    if (way == Way::Stop) {
        QTRY_VERIFY(stage.ok()->isEnabled());
        QVERIFY(stage.dialog->isVisible());
        QCOMPARE(stage.ok()->property("squishValue").toString(), QStringLiteral("fault"));
    } else {
        QVERIFY(isGone(stage.dialog));
    }
}

void tst_common_KestProcessDialogRuns_stopping::asksProperly()
{
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    QString defaultText;
    QString escapeText;
    QStringList buttons;
    QString details;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QWidget* parent = nullptr;
    BoxAnswerer answerer([&](QMessageBox& box) {
        title = box.windowTitle();
        icon = box.icon();
        parent = box.parentWidget();
        details = box.detailedText();
        defaultText = box.defaultButton() ? box.defaultButton()->text() : QString();
        escapeText = box.escapeButton() ? box.escapeButton()->text() : QString();
        const QList<QAbstractButton*> all = box.buttons();
        for (QAbstractButton* const button : all) {
            buttons.append(QStringLiteral("%1 %2 %3")
                               .arg(button->text())
                               .arg(box.buttonRole(button))
                               .arg(button->toolTip()));
        }
        buttons.sort();
        box.close(); // as Escape does
    });
    stage.stop()->click();
    QCOMPARE(title, QStringLiteral("Warning"));
    QCOMPARE(icon, QMessageBox::Warning);
    QCOMPARE(parent, stage.dialog.data());
    QVERIFY(details.isEmpty());
    QCOMPARE(buttons, (QStringList{QStringLiteral("No %1 ").arg(QMessageBox::NoRole),
                                   QStringLiteral("Yes %1 ").arg(QMessageBox::YesRole)}));
    QCOMPARE(defaultText, QStringLiteral("Yes"));
    QCOMPARE(escapeText, QStringLiteral("No"));
    QVERIFY(stage.runner->isRunning());
}

void tst_common_KestProcessDialogRuns_stopping::asksNothingWhenNothingRuns()
{
    for (const Way way : {Way::Close, Way::Escape}) {
        const DialogStage stage;
        QVERIFY(stage.run(words("out x\\n")));
        QTRY_VERIFY(stage.ok()->isEnabled());
        BoxAnswerer answerer(no());
        QSignalSpy rejected(stage.dialog, &QDialog::rejected);
        go(way, stage);
        QCOMPARE(rejected.count(), way == Way::Escape ? 1 : 0);
        QVERIFY(isGone(stage.dialog));
        QVERIFY(answerer.texts.isEmpty());
    }
}

void tst_common_KestProcessDialogRuns_stopping::asksNothingForOtherKeys()
{
    const DialogStage stage;
    const QString go = stage.folders.path() + QStringLiteral("/go");
    QVERIFY(stage.run({QStringLiteral("wait-for-file"), go}));
    BoxAnswerer answerer(no());
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_X, Qt::Key_Return}) {
        QTest::keyClick(stage.dialog, key);
    }
    QVERIFY(stage.dialog->isVisible());
    SettingsFolders::write(go, "");
    QTRY_VERIFY(stage.ok()->isEnabled());
    QTest::keyClick(stage.dialog, Qt::Key_Return);
    QVERIFY(isGone(stage.dialog));
    QVERIFY(answerer.texts.isEmpty());
}

void tst_common_KestProcessDialogRuns_stopping::keysThatSlipStopNothing_data()
{
    QTest::addColumn<bool>("closesDetails");

    QTest::newRow("as it opens") << false;
    QTest::newRow("after the details are closed") << true;
}

// Where the focus is, as the window system brings them.
void tst_common_KestProcessDialogRuns_stopping::keysThatSlipStopNothing()
{
    QFETCH(bool, closesDetails);
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    if (closesDetails) {
        stage.openDetails();
        stage.output()->setFocus();
        stage.details()->click();
        QVERIFY(!stage.output()->isVisible());
    }
    BoxAnswerer answerer(yes());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(stage.dialog->focusWidget(), key);
    }
    QCOMPARE(answerer.texts, QStringList());
    QVERIFY(stage.runner->isRunning());
}

void tst_common_KestProcessDialogRuns_stopping::stopIsReachedByTheKeyboard()
{
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    QTest::keyClick(stage.dialog->focusWidget(), Qt::Key_Tab);
    QVERIFY(stage.stop()->hasFocus());
    BoxAnswerer answerer(no());
    QTest::keyClick(stage.stop(), Qt::Key_Space);
    QCOMPARE(answerer.texts.size(), 1);
}

void tst_common_KestProcessDialogRuns_stopping::okStopsWithoutAsking()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer(no());
    stage.ok()->setEnabled(true);
    stage.ok()->click();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(hasEnded(stage));
    QVERIFY(answerer.texts.isEmpty());
}

void tst_common_KestProcessDialogRuns_stopping::okClosesAfterTheEnd()
{
    const DialogStage stage;
    QVERIFY(stage.run(words("out x\\n")));
    QTRY_VERIFY(stage.ok()->isEnabled());
    QSignalSpy finished(stage.dialog, &QDialog::finished);
    stage.ok()->click();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), 0);
    QVERIFY(isGone(stage.dialog));
}

void tst_common_KestProcessDialogRuns_stopping::endsWhileTheQuestionIsOpen_data()
{
    QTest::addColumn<bool>("answer");

    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

// The question stays until it is answered; by then there is nothing to stop any more.
void tst_common_KestProcessDialogRuns_stopping::endsWhileTheQuestionIsOpen()
{
    QFETCH(bool, answer);
    const DialogStage stage;
    const QString go = stage.folders.path() + QStringLiteral("/go");
    QVERIFY(stage.run({QStringLiteral("wait-for-file"), go, QStringLiteral("out"),
                       QStringLiteral("-*-total-percentage-*-100%\\n")}));
    bool stayed = false;
    BoxAnswerer answerer([&](QMessageBox& box) {
        SettingsFolders::write(go, "");
        const bool over = QTest::qWaitFor([&stage] { return stage.ok()->isEnabled(); }, patience);
        stayed = over && box.isVisible();
        (answer ? yes() : no())(box);
    });
    stage.stop()->click();
    QVERIFY(stayed);
    QVERIFY(stage.dialog->isVisible());
    QCOMPARE(stage.ok()->property("squishValue").toString(), QStringLiteral("valid"));
}

void tst_common_KestProcessDialogRuns_stopping::stopsDuringAFlood()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    BoxAnswerer answerer(yes());
    stage.stop()->click();
    QVERIFY(hasEnded(stage));
    QTRY_VERIFY(stage.ok()->isEnabled());
    QCOMPARE(answerer.texts.size(), 1);
}

void tst_common_KestProcessDialogRuns_stopping::isClosedDuringAFlood()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    BoxAnswerer answerer(yes());
    stage.dialog->close();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(hasEnded(stage));
}

void tst_common_KestProcessDialogRuns_stopping::isDestroyedDuringAFlood()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    delete stage.dialog;
    QTest::qWait(50); // in which nothing may end it
    QVERIFY(stage.runner->isRunning());
    stage.runner->stopProcess();
    QVERIFY(hasEnded(stage));
}

void tst_common_KestProcessDialogRuns_stopping::isDestroyedWhileTheQuestionIsOpen_data()
{
    asksBeforeItStops_data();
}

void tst_common_KestProcessDialogRuns_stopping::isDestroyedWhileTheQuestionIsOpen()
{
    QFETCH(Way, way);
    auto window = std::make_unique<QWidget>();
    const DialogStage stage(window.get());
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer([&window](QMessageBox&) { window.reset(); });
    go(way, stage);
    QVERIFY(stage.dialog.isNull());
    QVERIFY(stage.runner->isRunning());
    QCOMPARE(stage.runner->getRefCount(), 1);
}

void tst_common_KestProcessDialogRuns_stopping::isClosedWhileTheQuestionIsOpen()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer([&](QMessageBox& box) {
        if (answerer.texts.size() == 1) {
            QTimer::singleShot(0, stage.dialog, &QWidget::close);
        } else {
            yes()(box);
        }
    });
    stage.stop()->click();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(hasEnded(stage));
    QCOMPARE(answerer.texts.size(), 2);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_common_KestProcessDialogRuns_stopping::isClosedWhileASecondDialogRuns()
{
    const DialogStage stage;
    const common_ActivePtr<TalkingRunner> runner(new TalkingRunner);
    const QPointer<common_KestProcessDialog> second = new common_KestProcessDialog(runner, nullptr);
    QVERIFY(stage.run(words("flood 100000000 55")));
    runner->setExecutable(QStringLiteral(KEST_TEST_CHILD));
    runner->setArguments(words("lines 20000 20"));
    QVERIFY(runner->run());
    QVERIFY(hasLines(stage, 5000));
    BoxAnswerer answerer(yes());
    stage.dialog->close();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(QTest::qWaitFor([&runner] { return !runner->isRunning(); }, patience));
    QCOMPARE(
        second->findChild<QTextEdit*>(QStringLiteral("outputTextEdit"))->document()->blockCount(),
        20000);
    delete second;
}

void tst_common_KestProcessDialogRuns_stopping::isClosedWithASecondDialogOfTheSameRunner()
{
    SKIP_WITHOUT_TERMINATE();
    const DialogStage stage;
    const std::unique_ptr<common_KestProcessDialog> second =
        std::make_unique<common_KestProcessDialog>(stage.runner, nullptr);
    second->setAttribute(Qt::WA_DeleteOnClose, false);
    QVERIFY(stage.run(words("lines 20000 20 wait-for-file /nowhere/at/all")));
    QVERIFY(hasLines(stage, 20000));
    delete stage.dialog;
    stage.runner->stopProcess();
    QVERIFY(hasEnded(stage));
    QTRY_VERIFY(second->findChild<QPushButton*>(QStringLiteral("buttonOk"))->isEnabled());
    QCOMPARE(
        second->findChild<QTextEdit*>(QStringLiteral("outputTextEdit"))->document()->blockCount(),
        20000);
}

QTEST_MAIN(tst_common_KestProcessDialogRuns_stopping)
#include "tst_common_KestProcessDialogRuns_stopping.moc"
