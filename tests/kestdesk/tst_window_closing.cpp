// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <sendSignal.h>

#include <algorithm>

// How the window is closed, and its runs with it.
class tst_window_closing : public WindowTest
{
    Q_OBJECT

private:
    // The component's process, which has started the others.
    qint64 runProcess() const
    {
        qint64 oldest = 0;
        const QStringList processes = m_stage->desk().processes();
        for (const QString& process : processes) {
            const qint64 id = process.section(QLatin1Char(' '), 0, 0).toLongLong();
            oldest = oldest == 0 ? id : qMin(oldest, id);
        }
        return oldest;
    }

    // Whether the process has ended, or ends as soon as the system lets it run.
    static bool isKilled(const QString& process)
    {
        constexpr int bit = 1 << (SIGKILL - 1);
        const QList<QByteArray> lines = contentOf(text("/proc/%1/status").arg(process)).split('\n');
        return std::all_of(lines.begin(), lines.end(),
                           [](const QByteArray& line) {
                               return !line.startsWith("State:") || line.contains('Z');
                           }) ||
               std::any_of(lines.begin(), lines.end(), [](const QByteArray& line) {
                   return (line.startsWith("SigPnd:") || line.startsWith("ShdPnd:")) &&
                          (line.mid(8).trimmed().toULongLong(nullptr, 16) & bit) != 0;
               });
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void closingAsksWhileARunIsGoing()
    {
        startWaitingRun();
        {
            BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
            m_stage->press(Qt::Key_Q, Qt::ControlModifier);
            QCOMPARE(unwilling.texts, QStringList(text("Stop m.nec, 0 %, and quit?")));
        }
        QVERIFY(m_stage->window().isVisible());
        QCOMPARE(m_stage->state(), text("running"));
        const BoxAnswerer willing(WindowStage::agreeing());
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(m_stage->state(), text("stopped"));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void windowClosesWhenTheLastOfSeveralRunsHasStopped()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("stubborn", "b.nec");
        BoxAnswerer willing(WindowStage::agreeing());
        QVERIFY(!WindowStage::quits([this] { m_stage->window().close(); }, 500));
        QCOMPARE(willing.texts,
                 QStringList(text("Stop these 2 runs, and quit?\n\na.nec, 0 %\nb.nec, 0 %")));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
        QCOMPARE(m_stage->state(1), text("stopping, still running"));
        QVERIFY(m_stage->window().isVisible());
        QVERIFY(WindowStage::quits([this] { m_stage->endRuns(SIGKILL); }));
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(willing.texts.size(), 1);
    }

    void windowStaysWhenTheUserThinksBetterOfClosing()
    {
        startWaitingRun("stubborn");
        {
            const BoxAnswerer willing(WindowStage::agreeing());
            m_stage->window().close();
        }
        QCOMPARE(m_stage->outcomeText(), text("Stopping the runs..."));
        {
            const BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
            m_stage->window().close();
        }
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QVERIFY(!WindowStage::quits([] {}, 300));
        QVERIFY(m_stage->window().isVisible());
    }

    void closingWithoutRunsDoesNotAsk()
    {
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(m_stage->dialogs().constFirst()->isVisible());
        BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(reader.texts, QStringList());
    }

    void whatDoesNotStopIsEndedByForceAtTheSecondClose()
    {
        startWaitingRun("stubborn");
        BoxAnswerer willing(WindowStage::agreeing());
        QVERIFY(!WindowStage::quits([this] { m_stage->window().close(); }, 500));
        QCOMPARE(m_stage->state(), text("stopping, still running"));
        QVERIFY(m_stage->window().isVisible());
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(willing.texts.size(), 2);
        QCOMPARE(willing.texts.value(1),
                 text("m.nec, 0 %, has not stopped yet. End it by force and quit?"));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void whatAStoppedComponentLeavesBehindIsEndedToo()
    {
        startWaitingRun("forgetful");
        QVERIFY(WindowStage::quits([this] { m_stage->window().quit(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void whatARunThatWasStoppedLeftBehindIsEndedAtTheClose()
    {
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QCOMPARE(m_stage->desk().processes().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void whatARunLeftBehindIsEndedAtTheCloseHoweverItEnded_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("stopped in its dialog") << 0;
        QTest::newRow("terminated from outside") << int(SIGTERM);
        QTest::newRow("killed from outside") << int(SIGKILL);
    }

    void whatARunLeftBehindIsEndedAtTheCloseHoweverItEnded()
    {
        QFETCH(int, way);
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::agreeing());
        if (way == 0) {
            QTest::mouseClick(
                WindowStage::inDialog<QPushButton>(m_stage->dialogs().constFirst(), "buttonStop"),
                Qt::LeftButton);
        } else {
            QVERIFY(sendSignal(runProcess(), way));
        }
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->find<QPushButton>("stopButton")->isEnabled(), longTime);
        QCOMPARE(m_stage->desk().processes().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    // Nobody waits in the window's thread while what is left gets time to end.
    void windowStaysAliveWhileWhatIsLeftIsEnded()
    {
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        int turns = 0;
        bool isUnseen = false;
        QTimer turn;
        connect(&turn, &QTimer::timeout, this, [&] {
            ++turns;
            isUnseen = isUnseen ||
                       (!m_stage->window().isVisible() && !m_stage->desk().processes().isEmpty());
        });
        QVERIFY(WindowStage::quits([&] {
            turn.start(20);
            m_stage->window().close();
        }));
        QVERIFY2(turns > 2, qPrintable(QString::number(turns))); // one at most if somebody waits
        QVERIFY(!isUnseen);
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(m_stage->desk().processes(), QStringList());
        QCOMPARE(m_stage->outcomeText(), text("Ending what the runs have left behind..."));
        QVERIFY(!m_stage->find<QPushButton>("runButton")->isEnabled());
    }

    void secondCloseDoesNotWaitForWhatIsLeft_data()
    {
        QTest::addColumn<bool>("bySignal");
        QTest::newRow("close") << false;
        QTest::newRow("signal") << true;
    }

    void secondCloseDoesNotWaitForWhatIsLeft()
    {
        QFETCH(bool, bySignal);
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        const QStringList left = m_stage->desk().processes();
        QCOMPARE(left.size(), 1);
        const QString process = left.constFirst().section(QLatin1Char(' '), 0, 0);
        bool isKilledInTime = true;
        QTimer halfOfTheGrace; // it comes after all that does not wait, however slow the machine
        halfOfTheGrace.setSingleShot(true);
        connect(&halfOfTheGrace, &QTimer::timeout, this,
                [&] { isKilledInTime = isKilled(process); });
        QVERIFY(WindowStage::quits([&] {
            for (int i = 0; i < 2; ++i) {
                bySignal ? m_stage->window().quit() : static_cast<void>(m_stage->window().close());
            }
            halfOfTheGrace.start(1000);
        }));
        QVERIFY(isKilledInTime);
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void orphansThatHaveEndedAreTakenLeaveOf()
    {
        startWaitingRun("forgetful");
        const QStringList before = m_stage->desk().processes();
        QCOMPARE(before.size(), 2);
        QVERIFY(sendSignal(runProcess(), SIGKILL));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes().size(), 1, longTime);
        const pid_t orphan =
            m_stage->desk().processes().constFirst().section(QLatin1Char(' '), 0, 0).toInt();
        QVERIFY(sendSignal(orphan, SIGKILL));
        QTRY_VERIFY_WITH_TIMEOUT(::kill(orphan, 0) != 0, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, SIGKILL"), longTime);
    }

    void windowMayGoWhileRunsAndDialogsAreThere()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b.nec");
        m_stage->close(); // cleanup() looks for what is left
    }

    void programEndsItsRunsWhenItIsAskedToEnd()
    {
        m_stage->close();
        Desk desk;
        writeFile(desk.path("models/m.nec"), "forgetful");
        QVERIFY(QFile::link(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        desk.set("QT_PLUGIN_PATH", text(RUN_PRESSER_PATH));
        desk.set("QT_QPA_GENERIC_PLUGINS", text("runpresser"));
        QProcess program;
        desk.start(program, {text("m.nec")});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(desk.path("models/m.nec.seen")), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(desk.processes().size(), 3, longTime);
        QTRY_VERIFY_WITH_TIMEOUT(desk.processes().filter(text("runkest")).size() == 2, longTime);
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        const Desk::Result result = Desk::resultOf(program);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(desk.processes(), QStringList());
        const QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
        QCOMPARE(settings.value(text("session/model")).toString(), desk.path("models/m.nec"));
    }
};

QTEST_MAIN(tst_window_closing)

#include "tst_window_closing.moc"
