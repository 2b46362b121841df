// SPDX-License-Identifier: MIT
#include "../support/WindowTest.h"

#include <ModelLock.h>
#include <ProcessMark.h>
#include <RunArchive.h>

#include <QListWidget>

// The runs that wait, in the window.
class tst_window_queue : public WindowTest
{
    Q_OBJECT

private:
    QListWidget* list() const { return m_stage->find<QListWidget>("queueList"); }
    QPushButton* button(const char* name) const { return m_stage->find<QPushButton>(name); }

    QStringList waiting() const
    {
        QStringList result;
        for (int row = 0; row < list()->count(); ++row) {
            result.append(list()->item(row)->text().section(QLatin1Char(' '), 0, 0));
        }
        return result;
    }

    // All in the state that a model of that name is in.
    QStringList states() const
    {
        QStringList result;
        for (int run = 0; run < m_stage->runCount(); ++run) {
            result.append(m_stage->cell(run, "Model") + QLatin1Char(' ') + m_stage->state(run));
        }
        return result;
    }

    void queueHeld(const QStringList& names, const QByteArray& word) const
    {
        QStringList models;
        for (const QString& name : names) {
            models.append(m_stage->model(qPrintable(name), word));
        }
        m_stage->window().openModels(models);
    }

    void select(int row) const
    {
        list()->clearSelection();
        list()->item(row)->setSelected(true);
    }

private Q_SLOTS:
    void init()
    {
        m_stage.reset();
        m_stage = std::make_unique<WindowStage>();
        m_stage->setPreference("runsAtOnce", 1); // as of somebody who has changed nothing
        m_stage->open();
    }

    void cleanup() { tearDown(); }

    void nothingIsShownWhileNothingWaits()
    {
        QVERIFY(!m_stage->find<QWidget>("queuePanel")->isVisible());
        startWaitingRun();
        QVERIFY(!m_stage->find<QWidget>("queuePanel")->isVisible());
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), Processes::killed().state, longTime);
    }

    void secondRunWaitsForTheFirst()
    {
        startWaitingRun();
        m_stage->run(m_stage->model("b.nec", "valid"));
        QVERIFY(m_stage->find<QWidget>("queuePanel")->isVisible());
        QCOMPARE(waiting(), QStringList(text("b.nec")));
        QCOMPARE(m_stage->runCount(), 1);
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(
            states(),
            QStringList({text("m.nec ") + Processes::killed().state, text("b.nec valid")}),
            longTime);
        QVERIFY(!m_stage->find<QWidget>("queuePanel")->isVisible());
    }

    void severalModelsAreHeldUntilTheUserRunsThem()
    {
        queueHeld({text("a.nec"), text("b.nec"), text("c.nec")}, "valid");
        QTest::qWait(200);
        QCOMPARE(m_stage->runCount(), 0);
        QCOMPARE(list()->count(), 3);
        button("releaseAllButton")->click();
        QTRY_COMPARE_WITH_TIMEOUT(
            states(), QStringList({text("a.nec valid"), text("b.nec valid"), text("c.nec valid")}),
            longTime);
    }

    void orderIsChangedAndRunsAreRemoved()
    {
        queueHeld({text("a.nec"), text("b.nec"), text("c.nec")}, "valid");
        select(2);
        button("queueUpButton")->click();
        QCOMPARE(waiting(), QStringList({text("a.nec"), text("c.nec"), text("b.nec")}));
        QVERIFY(list()->item(1)->isSelected());
        select(0);
        QVERIFY(!button("queueUpButton")->isEnabled());
        button("queueDownButton")->click();
        QCOMPARE(waiting(), QStringList({text("c.nec"), text("a.nec"), text("b.nec")}));
        select(1);
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_Delete);
        QCOMPARE(waiting(), QStringList({text("c.nec"), text("b.nec")}));
        select(0);
        button("holdButton")->click();
        QTRY_COMPARE_WITH_TIMEOUT(states(), QStringList(text("c.nec valid")), longTime);
        QCOMPARE(waiting(), QStringList(text("b.nec")));
        button("queueRemoveButton")->click();
    }

    void queueSurvivesTheEndOfTheWindow()
    {
        queueHeld({text("a.nec"), text("b.nec")}, "valid");
        startWaitingRun();
        m_stage->run(m_stage->model("c.nec", "valid"));
        QCOMPARE(list()->count(), 3);
        // A run without a record would stay in the file of the queue.
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->cell(0, "No.").isEmpty(), longTime);
        m_stage->close();
        // As if the process had ended with the window.
        const QDir user(m_stage->desk().path("user"));
        const QString file = user.entryList({text("queue-*.json")}).value(0);
        const QString number = file.section(QLatin1Char('-'), -1).section(QLatin1Char('.'), 0, 0);
        QString left = file;
        left.replace(number, QString::number(number.toULongLong() + 1));
        QVERIFY(QFile::rename(user.filePath(file), user.filePath(left)));
        m_stage->open();
        QCOMPARE(waiting(), QStringList({text("a.nec"), text("b.nec"), text("c.nec")}));
        QTest::qWait(200);
        QCOMPARE(list()->count(), 3); // all held
        button("releaseAllButton")->click();
        QTRY_VERIFY_WITH_TIMEOUT(states().contains(text("c.nec valid")), longTime);
    }

    void damagedQueueFileIsReportedAndKept()
    {
        m_stage->close();
        QStringList words = ProcessMark::own().word().split(QLatin1Char('-'));
        words.last() = QString::number(words.last().toULongLong() + 1); // of a process that is gone
        const QString file =
            m_stage->desk().path(text("user/queue-%1.json").arg(words.join(QLatin1Char('-'))));
        writeFile(file, "{\"runs\":[");
        m_stage->open();
        QVERIFY2(m_stage->outcomeText().contains(file + text(".damaged")),
                 qPrintable(m_stage->outcomeText()));
        QVERIFY(!QFile::exists(file));
        QVERIFY(QFile::exists(file + text(".damaged")));
    }

    void runWaitsWhileAnotherProgramHasItsModel()
    {
        const QString model = m_stage->model("m.nec", "valid");
        {
            ModelLock lock(model);
            QVERIFY(lock.take());
            m_stage->run(model);
            QCOMPARE(waiting(), QStringList(text("m.nec")));
            QVERIFY2(m_stage->outcomeText().contains(text("is being run already")),
                     qPrintable(m_stage->outcomeText()));
        }
        QTRY_COMPARE_WITH_TIMEOUT(states(), QStringList(text("m.nec valid")), longTime);
    }

    void nothingBeginsWhileTheWindowCloses()
    {
        startWaitingRun("tidy");
        m_stage->run(m_stage->model("b.nec", "valid"));
        QVERIFY(WindowStage::quits([this] { m_stage->window().quit(); }));
        QCOMPARE(m_stage->runCount(), 1);
        QCOMPARE(waiting(), QStringList(text("b.nec")));
    }

    void modelsThatCannotBeOpenedAreShownAndLeftOut()
    {
        QStringList texts;
        const BoxAnswerer answerer([&texts](QMessageBox& box) {
            texts.append(box.text());
            box.reject();
        });
        m_stage->window().openModels(
            {m_stage->desk().path("models/gone.nec"), m_stage->model("a.nec", "valid"),
             m_stage->desk().path("models/lost.nec"), m_stage->model("b.nec", "valid")});
        QCOMPARE(texts.size(), 1);
        QVERIFY(texts.at(0).contains(text("gone.nec")) && texts.at(0).contains(text("lost.nec")));
        QCOMPARE(waiting(), QStringList({text("a.nec"), text("b.nec")}));
    }

    void runThatCannotStartLetsTheNextOneBegin()
    {
        const BoxAnswerer answerer([](QMessageBox& box) { box.reject(); });
        queueHeld({text("a.nec"), text("b.nec")}, "valid");
        QVERIFY(QFile::remove(m_stage->desk().path("models/a.nec")));
        button("releaseAllButton")->click();
        QTRY_VERIFY_WITH_TIMEOUT(states().contains(text("b.nec valid")), longTime);
    }
};

QTEST_MAIN(tst_window_queue)

#include "tst_window_queue.moc"
