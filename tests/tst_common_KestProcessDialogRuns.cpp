// The process dialog with real processes: how it stops them, and how it ends.
#include <BoxAnswerer.h>
#include <DialogStage.h>

#include <QScrollBar>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

const char* const question = "Are you sure you want to stop the process?";
const char* const asleep = "sleep 600000";
constexpr int patience = 60000; // less than the child sleeps

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

BoxAnswerer::Answer yes()
{
    return BoxAnswerer::clicking(QStringLiteral("Yes"));
}

BoxAnswerer::Answer no()
{
    return BoxAnswerer::clicking(QStringLiteral("No"));
}

bool isGone(const QPointer<common_KestProcessDialog>& dialog)
{
    return QTest::qWaitFor([&dialog] { return dialog.isNull(); }, patience);
}

bool hasEnded(const DialogStage& stage)
{
    return QTest::qWaitFor([&stage] { return !stage.runner->isRunning(); }, patience);
}

bool hasLines(const DialogStage& stage, int count)
{
    return QTest::qWaitFor([&] { return stage.output()->document()->blockCount() >= count; },
                           patience);
}

/// Ways of a user to stop the process.
enum class Way { Stop, Close, Escape };

void go(Way way, const DialogStage& stage)
{
    switch (way) {
    case Way::Stop:
        stage.stop()->click();
        break;
    case Way::Close:
        stage.dialog->close();
        break;
    case Way::Escape:
        QTest::keyClick(stage.dialog, Qt::Key_Escape);
        break;
    }
}

} // namespace

Q_DECLARE_METATYPE(Way)

class tst_common_KestProcessDialogRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsARunToItsEnd();
    void showsEveryLineOfAFlood();
    void tellsACrash();
    void caresForNoExitCode_data();
    void caresForNoExitCode();
    void asksBeforeItStops_data();
    void asksBeforeItStops();
    void stopsWhenTheAnswerIsYes_data();
    void stopsWhenTheAnswerIsYes();
    void asksProperly();
    void asksNothingWhenNothingRuns();
    void asksNothingForOtherKeys();
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
    void losesItsParent();
    void losesTheRunnersOwner();
    void losesItsParentWhileItTellsOfAFailedStart();
    void showsASecondRun();
    void saysThatAStubbornProcessGoesOn();
    void mayBeReadAndUsedDuringAFlood();
};

void tst_common_KestProcessDialogRuns::showsARunToItsEnd()
{
    const DialogStage stage;
    QVERIFY(stage.run({QStringLiteral("out"),
                       QStringLiteral("begin\\n-*-notice-*-NOTE 1: a\\n-*-warning-*-WARNING 2: b\\n"
                                      "-*-linefeed-*-\\n-*-file-*- out.log \\n"
                                      "-*-total-percentage-*-100%\\n"),
                       QStringLiteral("err"), QStringLiteral("on the other channel\\n")}));
    QVERIFY(stage.dialog->isVisible());
    QVERIFY(hasEnded(stage));
    QTRY_VERIFY(stage.ok()->isEnabled());
    QStringList lines = stage.text().split(QLatin1Char('\n'));
    QVERIFY(lines.removeOne(QStringLiteral("on the other channel")));
    QCOMPARE(lines.join(QLatin1Char('|')), QStringLiteral("begin|NOTE 1: a|WARNING 2: b||out.log"));
    QCOMPARE(stage.ok()->property("squishValue").toString(), QStringLiteral("valid"));
    QCOMPARE(stage.notices()->rowCount(), 1);
    QCOMPARE(stage.warnings()->rowCount(), 1);
}

void tst_common_KestProcessDialogRuns::showsEveryLineOfAFlood()
{
    constexpr int count = 50000;
    const DialogStage stage;
    QVERIFY(stage.run({QStringLiteral("lines"), QString::number(count), QStringLiteral("20")}));
    stage.openDetails();
    QVERIFY(hasEnded(stage));
    QTRY_VERIFY(stage.ok()->isEnabled());
    const QStringList lines = stage.text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), count);
    for (int number = 0; number < count; ++number) {
        QVERIFY(lines.at(number).startsWith(QString::number(number) + QLatin1Char('.')));
    }
    const QScrollBar* const bar = stage.output()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0 && bar->maximum() - bar->value() <= 4);
}

void tst_common_KestProcessDialogRuns::tellsACrash()
{
    const DialogStage stage;
    QVERIFY(stage.run(words("out begin\\n crash")));
    QTRY_VERIFY(stage.ok()->isEnabled());
    QCOMPARE(stage.text(), QStringLiteral("begin"));
    QCOMPARE(stage.ok()->property("squishValue").toString(), QStringLiteral("fault"));
}

void tst_common_KestProcessDialogRuns::caresForNoExitCode_data()
{
    QTest::addColumn<QString>("commands");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("complete, then 3")
        << QStringLiteral("out -*-total-percentage-*-100%\\n exit 3") << QStringLiteral("valid");
    QTest::newRow("incomplete, then 0")
        << QStringLiteral("out -*-total-percentage-*-99%\\n exit 0") << QStringLiteral("fault");
}

void tst_common_KestProcessDialogRuns::caresForNoExitCode()
{
    QFETCH(QString, commands);
    const DialogStage stage;
    QVERIFY(stage.run(commands.split(QLatin1Char(' '))));
    QTRY_VERIFY(stage.ok()->isEnabled());
    QTEST(stage.ok()->property("squishValue").toString(), "outcome");
}

void tst_common_KestProcessDialogRuns::asksBeforeItStops_data()
{
    QTest::addColumn<Way>("way");

    QTest::newRow("stop") << Way::Stop;
    QTest::newRow("close") << Way::Close;
    QTest::newRow("escape") << Way::Escape;
}

void tst_common_KestProcessDialogRuns::asksBeforeItStops()
{
    QFETCH(Way, way);
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer(no());
    go(way, stage);
    QCOMPARE(answerer.texts, QStringList(QLatin1String(question)));
    QTest::qWait(20);
    QVERIFY(stage.dialog && stage.dialog->isVisible());
    QVERIFY(stage.runner->isRunning());
    QVERIFY(stage.stop()->isEnabled());
}

void tst_common_KestProcessDialogRuns::stopsWhenTheAnswerIsYes_data()
{
    asksBeforeItStops_data();
}

void tst_common_KestProcessDialogRuns::stopsWhenTheAnswerIsYes()
{
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

void tst_common_KestProcessDialogRuns::asksProperly()
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

void tst_common_KestProcessDialogRuns::asksNothingWhenNothingRuns()
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

void tst_common_KestProcessDialogRuns::asksNothingForOtherKeys()
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

void tst_common_KestProcessDialogRuns::okStopsWithoutAsking()
{
    const DialogStage stage;
    QVERIFY(stage.run(words(asleep)));
    BoxAnswerer answerer(no());
    stage.ok()->setEnabled(true);
    stage.ok()->click();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(hasEnded(stage));
    QVERIFY(answerer.texts.isEmpty());
}

void tst_common_KestProcessDialogRuns::okClosesAfterTheEnd()
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

void tst_common_KestProcessDialogRuns::endsWhileTheQuestionIsOpen_data()
{
    QTest::addColumn<bool>("answer");

    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

// The question stays until it is answered; by then there is nothing to stop any more.
void tst_common_KestProcessDialogRuns::endsWhileTheQuestionIsOpen()
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

void tst_common_KestProcessDialogRuns::stopsDuringAFlood()
{
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

void tst_common_KestProcessDialogRuns::isClosedDuringAFlood()
{
    const DialogStage stage;
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    BoxAnswerer answerer(yes());
    stage.dialog->close();
    QVERIFY(isGone(stage.dialog));
    QVERIFY(hasEnded(stage));
}

void tst_common_KestProcessDialogRuns::isDestroyedDuringAFlood()
{
    const DialogStage stage;
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    delete stage.dialog;
    QTest::qWait(50);
    QVERIFY(stage.runner->isRunning());
    stage.runner->stopProcess();
    QVERIFY(hasEnded(stage));
}

void tst_common_KestProcessDialogRuns::isDestroyedWhileTheQuestionIsOpen_data()
{
    asksBeforeItStops_data();
}

void tst_common_KestProcessDialogRuns::isDestroyedWhileTheQuestionIsOpen()
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

void tst_common_KestProcessDialogRuns::isClosedWhileTheQuestionIsOpen()
{
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

void tst_common_KestProcessDialogRuns::isClosedWhileASecondDialogRuns()
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

void tst_common_KestProcessDialogRuns::isClosedWithASecondDialogOfTheSameRunner()
{
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

void tst_common_KestProcessDialogRuns::losesItsParent()
{
    auto window = std::make_unique<QWidget>();
    const DialogStage stage(window.get());
    QVERIFY(stage.run(words("flood 100000000 55")));
    stage.openDetails();
    QVERIFY(hasLines(stage, 5000));
    window.reset();
    QVERIFY(stage.dialog.isNull());
    QTest::qWait(20);
    QVERIFY(stage.runner->isRunning());
}

void tst_common_KestProcessDialogRuns::losesTheRunnersOwner()
{
    DialogStage stage;
    QVERIFY(stage.run(words("lines 5000 20")));
    stage.runner.reset();
    QTRY_VERIFY(stage.ok()->isEnabled());
    QCOMPARE(stage.output()->document()->blockCount(), 5000);
    stage.ok()->click();
    QVERIFY(isGone(stage.dialog));
}

void tst_common_KestProcessDialogRuns::losesItsParentWhileItTellsOfAFailedStart()
{
    auto window = std::make_unique<QWidget>();
    const DialogStage stage(window.get());
    stage.runner->setExecutable(stage.folders.path());
    BoxAnswerer answerer([&window](QMessageBox&) { window.reset(); });
    QVERIFY(!stage.runner->run());
    QCOMPARE(answerer.texts.size(), 1);
    QVERIFY(stage.dialog.isNull());
}

void tst_common_KestProcessDialogRuns::showsASecondRun()
{
    const DialogStage stage;
    for (const char* const text : {"first", "second"}) {
        QVERIFY(stage.run({QStringLiteral("out"), QLatin1String(text) + QStringLiteral("\\n")}));
        QVERIFY(!stage.ok()->isEnabled());
        QVERIFY(stage.stop()->isEnabled());
        QTRY_VERIFY(stage.ok()->isEnabled());
    }
    QCOMPARE(stage.text(), QStringLiteral("first\nsecond"));
}

void tst_common_KestProcessDialogRuns::saysThatAStubbornProcessGoesOn()
{
    const DialogStage stage;
    const QString go = stage.folders.path() + QStringLiteral("/go");
    QVERIFY(stage.run({QStringLiteral("ignore-terminate"), QStringLiteral("out"),
                       QStringLiteral("deaf\\n"), QStringLiteral("wait-for-file"), go}));
    QTRY_COMPARE(stage.text(), QStringLiteral("deaf"));
    BoxAnswerer answerer(yes());
    stage.stop()->click();
    QTest::qWait(50);
    QVERIFY(stage.runner->isRunning());
    QVERIFY(stage.dialog->isVisible());
    QVERIFY(stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->isEnabled());
    SettingsFolders::write(go, "");
    QVERIFY(hasEnded(stage));
}

// What a user may do at any time, in the middle of everything.
void tst_common_KestProcessDialogRuns::mayBeReadAndUsedDuringAFlood()
{
    const DialogStage stage;
    QStringList commands;
    for (int number = 0; number < 200; ++number) {
        commands += {QStringLiteral("out"),
                     QStringLiteral("-*-warning-*-WARNING 1: %1\\n-*-notice-*-NOTE 2: %1\\n"
                                    "-*-percentage-*-%1%\\n")
                         .arg(number % 100),
                     QStringLiteral("lines"), QStringLiteral("100"), QStringLiteral("20")};
    }
    QVERIFY(stage.run(commands));
    stage.openDetails();
    int turn = 0;
    while (stage.runner->isRunning()) {
        stage.tabs()->setCurrentIndex(turn % 3);
        stage.dialog->resize(700 + turn % 7 * 20, 500 + turn % 5 * 20);
        QTest::keyClick(stage.output(), turn % 2 ? Qt::Key_PageUp : Qt::Key_PageDown);
        QTest::mouseClick(stage.output()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(20 + turn % 50, 20 + turn % 90));
        if (turn % 11 == 0) {
            stage.details()->toggle();
        }
        if (stage.warnings()->rowCount() > 0) {
            Q_EMIT stage.warnings()->cellDoubleClicked(stage.warnings()->rowCount() - 1, 0);
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        ++turn;
    }
    QTRY_VERIFY(stage.ok()->isEnabled());
    QCOMPARE(stage.output()->document()->blockCount(), 200 * 102);
    QCOMPARE(stage.warnings()->rowCount(), 200);
    QVERIFY(turn > 0);
}

QTEST_MAIN(tst_common_KestProcessDialogRuns)
#include "tst_common_KestProcessDialogRuns.moc"
