// SPDX-License-Identifier: MIT
#include "Heartbeat.h"
#include "RecordsWindowTest.h"

#include <ShellCommand.h>
#include <SystemSkips.h>

#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QHeaderView>
#include <QToolButton>

using State = RunRecord::State;

// The list of runs, which shows the archive.
class tst_run_list : public RecordsWindowTest
{
    Q_OBJECT

private:
    // Of a row as it is shown.
    QString shown(int row, const char* column) const
    {
        return m_stage->cell(m_stage->runCount() - 1 - row, column);
    }

    QStringList column(const char* name) const
    {
        QStringList texts;
        for (int row = 0; row < m_stage->runCount(); ++row) {
            texts.append(shown(row, name));
        }
        return texts;
    }

    int columnOf(const char* name) const
    {
        const QAbstractItemModel* const runs = list()->model();
        for (int i = 0; i < runs->columnCount(); ++i) {
            if (runs->headerData(i, Qt::Horizontal).toString() == text(name)) {
                return i;
            }
        }
        return -1;
    }

    void trigger(const char* action) const { m_stage->find<QAction>(action)->trigger(); }

private Q_SLOTS:
    void init() { setUpRecords(); }
    void cleanup() { tearDown(); }

    void runsOfEarlierSessionsAreThereNewestFirst()
    {
        m_records->add("a.nec", State::Valid);
        m_records->add("b.nec", State::Fault, "fault, SIGKILL");
        m_records->add("c.nec", State::NotStarted, "could not start");
        m_stage->open();
        waitForRuns(3);
        QCOMPARE(column("No."), QStringList({text("3"), text("2"), text("1")}));
        QCOMPARE(column("Model"), QStringList({text("c.nec"), text("b.nec"), text("a.nec")}));
        QCOMPARE(column("State"),
                 QStringList({text("not started"), text("fault, SIGKILL"), text("valid")}));
        QCOMPARE(shown(0, "Elapsed"), text("1:15"));
        QCOMPARE(shown(0, "Folder"), QDir::toNativeSeparators(m_stage->desk().path("models")));
    }

    void runOfTheWindowIsRecordedAndListedOnce()
    {
        m_stage->open();
        m_stage->run(m_stage->model("m.nec", "files"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "No."), text("1"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(
            m_records->archive().record(1) && m_records->archive().record(1)->hasEnded(), longTime);
        QTest::qWait(1500); // the archive has been looked at since
        QCOMPARE(m_stage->runCount(), 1);
        const auto record = m_records->archive().record(1);
        QCOMPARE(record->face, text("window"));
        QCOMPARE(record->state, State::Valid);
        QCOMPARE(record->totalPercentage, 100);
        QCOMPARE(record->files.size(), 2);
    }

    void listIsTheSameInTheNextSession()
    {
        m_stage->open();
        m_stage->run(m_stage->model("m.nec", "fault"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, exit code 3"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(
            m_records->archive().record(1) && m_records->archive().record(1)->hasEnded(), longTime);
        m_stage->close();
        m_stage->open();
        waitForRuns(1);
        QCOMPARE(m_stage->state(), text("fault, exit code 3"));
    }

    void failureOfTheRecordIsSaid()
    {
        m_stage->open();
        writeFile(m_stage->desk().path("user/runs"), "no folder"); // in the archive's place
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QTRY_VERIFY2_WITH_TIMEOUT(
            m_stage->outcomeText().contains(text("The record of this run is not complete: ")),
            qPrintable(m_stage->outcomeText()), longTime);
    }

    void runsOfOtherProgramsAppearAndGo()
    {
        m_stage->open();
        const RunArchive::Addition running = m_records->addRunning("x.nec");
        waitForRuns(1);
        QCOMPARE(m_stage->state(), text("running"));
        RecordMaker::writeMessages(running.folder,
                                   {{10, common_IProcessMessage::TotalPercentage, text("40%")},
                                    {11, common_IProcessMessage::Warning, text("hot")}});
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Messages"), text("1 warning"), longTime);
        RunRecord record = *m_records->archive().record(running.number);
        record.state = State::Valid;
        record.ended = QDateTime::currentDateTimeUtc();
        record.outcome = text("valid");
        QVERIFY(RecordFolder(running.folder).writeEnd(record));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(m_records->archive().remove(running.number));
        waitForRuns(0);
    }

    void runOfAKilledProgramIsInterrupted()
    {
        m_stage->open();
        QProcess batch;
        m_stage->desk().start(batch, {text("--non-interactive"), m_stage->model("m.nec", "wait")});
        waitForRuns(1);
        QCOMPARE(m_stage->state(), text("running"));
        QCOMPARE(m_stage->cell(0, "Where"), text("terminal"));
        batch.kill();
        QVERIFY(batch.waitForFinished(30000));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("interrupted"), longTime);
        m_stage->endRuns(SIGKILL);
    }

    void wordsAndStateFilterTheList()
    {
        m_records->add("dipole.nec", State::Valid);
        m_records->add("dipole.nec", State::Fault, "fault, SIGKILL");
        m_records->add("loop.nec", State::Fault, "fault, exit code 3");
        m_stage->open();
        waitForRuns(3);
        auto* const filter = m_stage->find<QLineEdit>("runFilterEdit");
        filter->setText(text("DIPOLE fault"));
        QCOMPARE(column("No."), QStringList(text("2")));
        QCOMPARE(m_stage->find<QLabel>("runCountLabel")->text(), text("1 of 3"));
        filter->setText(text("exit"));
        QCOMPARE(column("No."), QStringList(text("3")));
        filter->clear();
        m_stage->find<QComboBox>("runStateBox")->setCurrentText(text("Valid"));
        QCOMPARE(column("No."), QStringList(text("1")));
        trigger("showAllRunsAction");
        QCOMPARE(m_stage->runCount(), 3);
        QCOMPARE(m_stage->find<QLabel>("runCountLabel")->text(), QString());
    }

    void everyColumnSorts()
    {
        m_records->add("b.nec", State::Valid);
        m_records->add("a.nec", State::Stopped);
        m_stage->open();
        waitForRuns(2);
        for (int i = 0; i < list()->model()->columnCount(); ++i) {
            list()->sortByColumn(i, Qt::AscendingOrder);
            const QStringList models = column("Model");
            const bool isByNumber = i == columnOf("No.") || i == columnOf("Started");
            if (i == columnOf("Model") || i == columnOf("State")) {
                QCOMPARE(models.first(), text("a.nec")); // "stopped" comes before "valid"
            } else if (isByNumber) {
                QCOMPARE(models.first(), text("b.nec"));
            }
        }
        list()->sortByColumn(columnOf("No."), Qt::DescendingOrder);
        QCOMPARE(column("No."), QStringList({text("2"), text("1")}));
        for (int number = 3; number <= 10; ++number) {
            m_records->add("c.nec", State::Valid);
        }
        waitForRuns(10);
        QCOMPARE(column("No.").value(0), text("10")); // not as text
    }

    void runsOfAModelAreKeptTogether()
    {
        for (const char* const model : {"a.nec", "b.nec", "a.nec", "c.nec", "b.nec"}) {
            m_records->add(model, State::Valid);
        }
        m_stage->open();
        waitForRuns(5);
        m_stage->find<QToolButton>("groupRunsButton")->setChecked(true);
        QCOMPARE(column("No."),
                 QStringList({text("5"), text("2"), text("4"), text("3"), text("1")}));
        QCOMPARE(column("Model"), QStringList({text("b.nec (2 runs)"), text("b.nec"), text("c.nec"),
                                               text("a.nec (2 runs)"), text("a.nec")}));
        m_stage->find<QToolButton>("groupRunsButton")->setChecked(false);
        QCOMPARE(column("No.").value(0), text("5"));
    }

    void statesAreNeverCut()
    {
        m_records->add("a model with quite a long name.nec", State::Fault, "fault, exit code 255");
        m_records->add("b.nec", State::Fault, "fault, SIGSEGV");
        m_stage->open();
        m_stage->window().resize(800, 600);
        waitForRuns(2);
        QTest::qWait(50);
        const int state = columnOf("State");
        const int widest = list()->fontMetrics().horizontalAdvance(text("fault, exit code 255"));
        QVERIFY2(list()->columnWidth(state) >= widest + 16,
                 qPrintable(QString::number(list()->columnWidth(state))));
        SKIP_UNDER_WINE("the letters are not those of Windows, and wider");
        QVERIFY2(list()->horizontalHeader()->length() <= list()->viewport()->width(),
                 qPrintable(text("%1 > %2")
                                .arg(list()->horizontalHeader()->length())
                                .arg(list()->viewport()->width())));
    }

    void recordsAreDeletedOnceTheUserAgrees()
    {
        m_records->add("a.nec", State::Valid);
        m_records->add("b.nec", State::Valid);
        m_records->addRunning("c.nec");
        m_stage->open();
        waitForRuns(3);
        list()->selectAll();
        {
            const BoxAnswerer refusing(WindowStage::pressing(Qt::Key_Return));
            trigger("deleteRunsAction");
            QCOMPARE(refusing.texts.size(), 1);
            QVERIFY2(refusing.texts.first().contains(text("Run 2: b.nec, valid\n"
                                                          "Run 1: a.nec, valid")) &&
                         !refusing.texts.first().contains(text("c.nec")),
                     qPrintable(refusing.texts.first()));
        }
        QTest::qWait(100);
        QCOMPARE(m_records->archive().numbers().size(), 3);
        const BoxAnswerer agreeing(BoxAnswerer::clicking(text("&Delete")));
        trigger("deleteRunsAction");
        waitForRuns(1);
        QCOMPARE(m_records->archive().numbers(), QVector<int>({3}));
        QVERIFY(!m_stage->find<QAction>("deleteRunsAction")->isEnabled());
    }

    void clearedRunsComeBack()
    {
        m_records->add("a.nec", State::Valid);
        m_stage->open();
        waitForRuns(1);
        startWaitingRun();
        QCOMPARE(m_stage->runCount(), 2);
        trigger("clearAction");
        QCOMPARE(column("Model"), QStringList(text("m.nec")));
        QTRY_COMPARE_WITH_TIMEOUT(m_records->archive().numbers().size(), 2, longTime);
        trigger("showAllRunsAction");
        QCOMPARE(m_stage->runCount(), 2);
        const BoxAnswerer willing(WindowStage::agreeing());
        trigger("stopAction");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("stopped"), longTime);
    }

    void commandIsCopied()
    {
        m_records->add("it's.nec", State::Valid);
        m_stage->open();
        waitForRuns(1);
        list()->selectRow(0);
        trigger("copyCommandAction");
        const QString program = QDir::toNativeSeparators(m_stage->desk().path("home/bin/runkest"));
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 ShellCommand::line(QDir::toNativeSeparators(m_stage->desk().path("models")), {},
                                    {program, text("it's.nec"), text("--run-from-gui")}));
    }

    void runIsRunAgainExactly()
    {
        m_stage->open();
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(
            m_records->archive().record(1) && m_records->archive().record(1)->hasEnded(), longTime);
        const QByteArray first = contentOf(model + text(".seen"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "No."), text("1"), longTime);
        list()->selectRow(0);
        trigger("runAgainAction");
        waitForRuns(2);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QCOMPARE(contentOf(model + text(".seen")).left(first.indexOf("--\n")),
                 first.left(first.indexOf("--\n")));
        QTRY_COMPARE_WITH_TIMEOUT(m_records->archive().record(2).value_or(RunRecord()).repeats, 1,
                                  longTime);
    }

    void changedModelIsAskedAbout_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("run");
        QTest::newRow("as it was") << "As it &was"
                                   << "m-run1.nec";
        QTest::newRow("as it is") << "As it is &now"
                                  << "m.nec";
        QTest::newRow("neither") << "Cancel"
                                 << "";
    }

    void changedModelIsAskedAbout()
    {
        QFETCH(QString, button);
        QFETCH(QString, run);
        m_stage->open();
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(
            m_records->archive().record(1) && m_records->archive().record(1)->hasEnded(), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "No."), text("1"), longTime);
        m_stage->model("m.nec", "fault");
        list()->selectRow(0);
        const BoxAnswerer answerer(BoxAnswerer::clicking(button));
        trigger("runAgainAction");
        QTRY_COMPARE_WITH_TIMEOUT(answerer.texts.size(), 1, longTime);
        if (run.isEmpty()) {
            QTest::qWait(200);
            QCOMPARE(m_stage->runCount(), 1);
            return;
        }
        waitForRuns(2);
        QCOMPARE(m_stage->cell(1, "Model"), run);
        const bool isOld = run != text("m.nec");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1),
                                  isOld ? text("valid") : text("fault, exit code 3"), longTime);
    }

    void thousandRecordsDoNotHoldUpTheWindow()
    {
        SKIP_WITHOUT_WAITING_TIMES();
        for (int i = 0; i < 1000; ++i) {
            m_records->add(i % 3 == 0 ? "a.nec" : "b.nec",
                           i % 2 == 0 ? State::Valid : State::Fault);
        }
        const Heartbeat heart;
        m_stage->open();
        waitForRuns(1000);
        m_stage->find<QLineEdit>("runFilterEdit")->setText(text("a.nec"));
        QTRY_COMPARE(m_stage->runCount(), 334);
        m_stage->find<QLineEdit>("runFilterEdit")->clear();
        QTRY_COMPARE(m_stage->runCount(), 1000);
        m_stage->find<QToolButton>("groupRunsButton")->setChecked(true);
        startWaitingRun();
        QTest::qWait(2500); // its times are shown
        const qint64 longestGap = heart.longestGap();
        m_stage->endRuns(SIGKILL);
        QVERIFY2(longestGap < Heartbeat::noticeable, qPrintable(QString::number(longestGap)));
    }

    void folderIsOpened()
    {
        m_records->add("a.nec", State::Valid);
        m_stage->open();
        waitForRuns(1);
        list()->selectRow(0);
        QDesktopServices::setUrlHandler(text("file"), this, "takeUrl");
        trigger("openFolderAction");
        QDesktopServices::unsetUrlHandler(text("file"));
        QCOMPARE(m_url, QUrl::fromLocalFile(m_stage->desk().path("models")));
    }

public Q_SLOTS:
    void takeUrl(const QUrl& url) { m_url = url; }

private:
    QUrl m_url;
};

QTEST_MAIN(tst_run_list)

#include "tst_run_list.moc"
