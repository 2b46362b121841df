// SPDX-License-Identifier: MIT
#include "LaunchStage.h"

// The results of runs are offered, and postkest shows them.
class tst_results_offered : public QObject, private LaunchStage
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { LaunchStage::beforeAll(); }
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void resultsAreOfferedOnceTheyAreThere_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QStringList>("shown");
        const QByteArray writing = "copy\ntable.csv\nm m.csv\n";
        const QByteArray whole = writing + reporting("m m.csv");
        const QStringList none;
        const QStringList one(text("m m.csv"));
        // clang-format off
        QTest::newRow("table")             << whole + done() << text("valid") << one;
        QTest::newRow("fault at the end")  << whole + "exit\n3\n" << text("fault, exit code 3") << one;
        QTest::newRow("stopped")           << whole + "exit\n143\n" << text("stopped") << one;
        QTest::newRow("not told of")       << writing + done() << text("valid") << none;
        QTest::newRow("not written")       << reporting("m m.csv") + done() << text("valid") << none;
        QTest::newRow("folder")            << "make-directory\nm m.csv\n" + reporting("m m.csv") + done() << text("valid") << none;
        QTest::newRow("other files")       << "copy\ntable.csv\nm.out\n" + reporting("m.out") + done() << text("valid") << none;
        QTest::newRow("no frequencies")    << "write\nsteps.csv\nrun,value\\n\n" + reporting("steps.csv") + done() << text("valid") << none;
        QTest::newRow("empty")             << "touch\nm.csv\n" + reporting("m.csv") + done() << text("valid") << none;
        QTest::newRow("told of early")     << reporting("m m.csv") + writing + done() << text("valid") << one;
        QTest::newRow("told of by stderr") << writing + reporting("m m.csv", "err") + done() << text("valid") << one;
        QTest::newRow("told of twice")     << whole + reporting("./m m.csv") + done() << text("valid") << one;
        QTest::newRow("absolute")          << writing + "out\n-*-file-*-\nabsolute\nm m.csv\n" + done() << text("valid") << one;
        QTest::newRow("capitals")          << "copy\ntable.csv\nM.CSV\n" + reporting("M.CSV") + done() << text("valid") << QStringList(text("M.CSV"));
        QTest::newRow("two")               << whole + reporting("table.csv") + done() << text("valid") << QStringList({text("m m.csv"), text("table.csv")});
        // clang-format on
    }

    void resultsAreOfferedOnceTheyAreThere()
    {
        QFETCH(QByteArray, words);
        QFETCH(QString, state);
        QFETCH(QStringList, shown);
        obey();
        writeFile(file("table.csv"), table);
        run("a model.nec", words);
        QCOMPARE(m_stage->state(), state);
        QCOMPARE(isEnabled("showResultsAction"), !shown.isEmpty());
        QCOMPARE(isEnabled("showAllResultsAction"), !shown.isEmpty());
        QCOMPARE(m_stage->find<QPushButton>("showResultsButton")->isEnabled(), !shown.isEmpty());
        if (!shown.isEmpty()) {
            m_stage->press(Qt::Key_F8);
            QStringList expected(models());
            for (const QString& name : qAsConst(shown)) {
                expected.append(between(m_stage->desk().path("models/") + name));
            }
            QCOMPARE(toldBy("postkest"), expected);
        }
    }

    void resultsAreOfferedAtTheEndOfARun()
    {
        obey();
        writeFile(file("m.csv"), table);
        m_stage->run(m_stage->model("m.nec", reporting("m.csv") +
                                                 saying("-*-total-percentage-*-50%") +
                                                 "wait-for-file\ngo\n" + done()));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QVERIFY(!isEnabled("showResultsAction"));
        writeFile(file("go"), "");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(isEnabled("showResultsAction"));
    }

    void resultsAreThoseOfTheSelectedRun()
    {
        runTwo();
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("b b.csv"))}));
        QCOMPARE(m_stage->outcomeText(), text("Opening b b.csv in postkest"));
        auto* const list = m_stage->find<QTableView>("runList");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Down); // an older one
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("a.csv"))}));

        QTest::keyClick(list, Qt::Key_B); // the model's first letter
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("b b.csv"))}));

        run("c.nec", done());
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(isEnabled("showAllResultsAction"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(m_stage->rowOf(1), 2)).center());
        QVERIFY(isEnabled("showResultsAction"));
    }

    void resultsOfAllRunsAreShownTogether()
    {
        runTwo();
        run("a.nec", reporting("a.csv") + done());
        m_stage->press(Qt::Key_F8, Qt::ShiftModifier);
        QCOMPARE(toldBy("postkest"),
                 QStringList({models(), between(file("a.csv")), between(file("b b.csv"))}));
        QCOMPARE(m_stage->outcomeText(), text("Opening 2 results in postkest"));
    }

    void resultsThatHaveGoneSinceAreToldOf()
    {
        runTwo();
        waitForRecords();
        QVERIFY(QFile::remove(file("b b.csv")));
        {
            const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
            m_stage->press(Qt::Key_F8);
            QCOMPARE(
                reader.texts,
                QStringList(
                    text("These results are no longer there:\n%1").arg(native(file("b b.csv")))));
        }
        QVERIFY(isNothingLaunched());
        m_stage->press(Qt::Key_F8, Qt::ShiftModifier);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("a.csv"))}));

        Q_EMIT m_stage->find<QMenu>("applicationMenu")->aboutToShow();
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(isEnabled("showAllResultsAction"));
    }

    void clearedRunsHaveNoResults()
    {
        runTwo();
        m_stage->find<QAction>("clearAction")->trigger();
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(!isEnabled("showAllResultsAction"));
    }

    void buttonShowsTheResults()
    {
        runTwo();
        auto* const button = m_stage->find<QPushButton>("showResultsButton");
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("b b.csv"))}));
        QVERIFY(!button->accessibleDescription().isEmpty());
        m_stage->press(Qt::Key_L, Qt::AltModifier);
        QCOMPARE(toldBy("postkest"), QStringList({models(), between(file("b b.csv"))}));
    }

    void listOfRunsHasTheActionsOfARunInItsMenu()
    {
        const auto* const list = m_stage->find<QTableView>("runList");
        QCOMPARE(list->contextMenuPolicy(), Qt::ActionsContextMenu);
        QList<QAction*> expected;
        for (const char* const name :
             {"showRunAction", "showRecordAction", "runAgainAction", "resumeRunAction",
              "openFolderAction", "copyCommandAction", "exportRunAction", "deleteRunsAction",
              "showResultsAction"}) {
            expected.append(m_stage->find<QAction>(name));
        }
        QCOMPARE(list->actions(), expected);
    }
};

QTEST_MAIN(tst_results_offered)

#include "tst_results_offered.moc"
