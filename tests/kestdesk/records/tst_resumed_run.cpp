// SPDX-License-Identifier: MIT
#include "RecordsWindowTest.h"

#include <ResumedRun.h>
#include <SystemSkips.h>

#include <memory>

using State = RunRecord::State;

Q_DECLARE_METATYPE(RunRecord::State)

// Runs that go on where they were stopped.
class tst_resumed_run : public RecordsWindowTest
{
    Q_OBJECT

private:
    QAction* action() const { return m_stage->find<QAction>("resumeRunAction"); }
    QPushButton* button() const { return m_stage->find<QPushButton>("resumeRunButton"); }

    // With the first run selected.
    void openWithRuns(int count)
    {
        m_stage->open();
        waitForRuns(count);
        list()->selectRow(0);
    }

    void writePartial() const { writeFile(m_stage->desk().path("models/m.partial"), "kept"); }

    // Whether there are results in it is known when the last of its files was seen.
    QDir folderThatTakesLongToRead() const
    {
        const int files = Wine::isHere() ? 1000 : 20000; // which takes long for each
        QDir folder(m_stage->desk().path("models/m.adaptkest"));
        folder.mkpath(text("."));
        for (int i = 0; i < files; ++i) {
            writeFile(folder.filePath(text(".%1").arg(i)), QByteArray());
        }
        return folder;
    }

    // What the component was started with for the last time.
    QStringList seenArguments() const
    {
        QByteArray seen = contentOf(m_stage->desk().path("models/m.nec.seen"));
        seen.truncate(seen.indexOf("--\n"));
        return QString::fromUtf8(seen).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void init() { setUpRecords(); }
    void cleanup() { tearDown(); }

    void runIsResumedWhereSomethingIsLeftToDo_data()
    {
        QTest::addColumn<State>("state");
        QTest::addColumn<QString>("component");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("obstacle");
        const QString solver = text("runkest");
        const QString partial = text("m.partial");
        // clang-format off
        QTest::newRow("stopped")     << State::Stopped     << solver          << partial              << QString();
        QTest::newRow("interrupted") << State::Interrupted << solver          << partial              << QString();
        QTest::newRow("fault")       << State::Fault       << solver          << partial              << QString();
        QTest::newRow("adaptive")    << State::Stopped     << solver          << text("m.adaptkest/1") << QString();
        QTest::newRow("nothing")     << State::Stopped     << solver          << text("n.partial")    << text("There is no m.partial beside the model to continue from.");
        QTest::newRow("empty")       << State::Stopped     << solver          << text("m.adaptkest/") << text("There is no m.partial beside the model to continue from.");
        QTest::newRow("valid")       << State::Valid       << solver          << partial              << text("The run has done all of its work.");
        QTest::newRow("running")     << State::Running     << solver          << partial              << text("The run is still going on.");
        QTest::newRow("not started") << State::NotStarted  << solver          << partial              << text("The run was not started.");
        QTest::newRow("optimiser")   << State::Stopped     << text("optkest") << partial              << text("Runs of optkest cannot be resumed.");
        // clang-format on
    }

    void runIsResumedWhereSomethingIsLeftToDo()
    {
        QFETCH(State, state);
        QFETCH(QString, component);
        QFETCH(QString, left);
        QFETCH(QString, obstacle);
        m_records->add("m.nec", State::Stopped);
        RunRecord record = *m_records->archive().record(1);
        record.state = state;
        record.component = component;
        const QString path = m_stage->desk().path("models/") + left;
        QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
        if (!left.endsWith(QLatin1Char('/'))) {
            writeFile(path, "kept");
        }
        QCOMPARE(ResumedRun::obstacle(record), obstacle);
        m_stage->open();
    }

    void modelMustBeThere()
    {
        m_records->add("m.nec", State::Stopped);
        writePartial();
        QVERIFY(QFile::remove(m_stage->desk().path("models/m.nec")));
        QCOMPARE(ResumedRun::obstacle(*m_records->archive().record(1)),
                 text("The model m.nec is no longer there."));
        m_stage->open();
    }

    void optionStandsBehindTheModelOnce()
    {
        RunRecord record;
        record.arguments = QStringList{text("m.nec"), text("--run-from-gui")};
        const QStringList resumed = {text("m.nec"), text("--resume"), text("--run-from-gui")};
        QCOMPARE(ResumedRun::of(record).arguments, resumed);
        QCOMPARE(ResumedRun::of(ResumedRun::of(record)).arguments, resumed);
        m_stage->open();
    }

    void stoppedRunIsResumedFromTheList_data()
    {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("menu") << false;
        QTest::newRow("button") << true;
    }

    void stoppedRunIsResumedFromTheList()
    {
        QFETCH(bool, byButton);
        m_records->add("m.nec", State::Stopped);
        writePartial();
        openWithRuns(1);
        QTRY_VERIFY_WITH_TIMEOUT(action()->isEnabled() && button()->isEnabled(), longTime);
        QVERIFY(button()->toolTip().contains(text("only what the stopped run has not kept")));
        if (byButton) {
            QTest::mouseClick(button(), Qt::LeftButton);
        } else {
            action()->trigger();
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 2, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QCOMPARE(seenArguments(),
                 QStringList({text("m.nec"), text("--resume"), text("--run-from-gui")}));
        QTRY_COMPARE_WITH_TIMEOUT(m_records->archive().record(2).value_or(RunRecord()).repeats, 1,
                                  longTime);
    }

    // A running run changes each second. A disk that takes longer must not be asked in vain.
    void answerOfTheDiskCountsThoughRunsKeepChanging()
    {
        m_records->add("m.nec", State::Stopped);
        const QDir folder = folderThatTakesLongToRead();
        m_stage->open();
        waitForRuns(1);
        QAbstractItemModel* const runs = list()->model();
        QTimer timer;
        connect(&timer, &QTimer::timeout, runs,
                [runs] { Q_EMIT runs->dataChanged(runs->index(0, 0), runs->index(0, 0)); });
        timer.start(1);
        list()->selectRow(0);
        const QString reason = text("There is no m.partial beside the model to continue from.");
        QTRY_COMPARE_WITH_TIMEOUT(action()->statusTip(), reason, longTime);
        writeFile(folder.filePath(text("result")), "kept");
        QTRY_VERIFY_WITH_TIMEOUT(action()->isEnabled(), longTime);
    }

    void reasonIsShownWhereARunCannotBeResumed()
    {
        m_records->add("m.nec", State::Stopped);
        openWithRuns(1);
        const QString reason = text("There is no m.partial beside the model to continue from.");
        QTRY_COMPARE_WITH_TIMEOUT(action()->statusTip(), reason, longTime);
        QVERIFY(!action()->isEnabled() && !button()->isEnabled());
        QVERIFY(button()->isHidden());
        QVERIFY(button()->toolTip().contains(reason));
        QCOMPARE(button()->accessibleDescription(), reason);
        list()->clearSelection();
        list()->setCurrentIndex(QModelIndex());
        QTRY_VERIFY_WITH_TIMEOUT(action()->statusTip().startsWith(text("Select one run")),
                                 longTime);
    }

    // Its record is read after its end.
    void runThatFailsAtOnceIsResumedFromTheList()
    {
        m_stage->open();
        writePartial();
        const auto hints = std::make_shared<QStringList>();
        connect(action(), &QAction::changed, this,
                [this, hints] { hints->append(action()->statusTip()); });
        m_stage->run(m_stage->model("m.nec", "ends 50 3"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        list()->selectRow(0);
        QTRY_VERIFY_WITH_TIMEOUT(action()->isEnabled(), longTime);
        disconnect(action(), nullptr, this, nullptr);
        for (const QString& hint : qAsConst(*hints)) {
            QVERIFY2(!hint.contains(text("cannot be resumed")), qPrintable(hint));
        }
    }

    // The list does not see what happens beside the models.
    void whatIsGoneByTheTimeIsSaid()
    {
        m_records->add("m.nec", State::Stopped);
        writePartial();
        openWithRuns(1);
        QTRY_VERIFY_WITH_TIMEOUT(action()->isEnabled(), longTime);
        QVERIFY(QFile::remove(m_stage->desk().path("models/m.partial")));
        action()->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->outcomeText(),
                                  text("Run 1 is not resumed. There is no m.partial beside the "
                                       "model to continue from."),
                                  longTime);
        QCOMPARE(m_stage->runCount(), 1);
    }

    void runIsResumedFromItsRecord()
    {
        m_records->add("m.nec", State::Interrupted);
        writePartial();
        openWithRuns(1);
        m_stage->find<QAction>("showRecordAction")->trigger();
        auto* const resume = m_stage->find<QPushButton>("resumeRecordButton");
        QTRY_VERIFY_WITH_TIMEOUT(resume->isEnabled(), longTime);
        resume->click();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 2, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QVERIFY(seenArguments().contains(text("--resume")));
    }

    void recordSaysWhyItCannotBeResumed()
    {
        m_records->add("m.nec", State::Valid);
        openWithRuns(1);
        m_stage->find<QAction>("showRecordAction")->trigger();
        auto* const resume = m_stage->find<QPushButton>("resumeRecordButton");
        QTRY_VERIFY_WITH_TIMEOUT(resume->toolTip().contains(text("has done all of its work")),
                                 longTime);
        QVERIFY(!resume->isEnabled());
    }
};

QTEST_MAIN(tst_resumed_run)

#include "tst_resumed_run.moc"
