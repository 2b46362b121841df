// SPDX-License-Identifier: MIT
#include "RecordMaker.h"
#include "WindowTest.h"

#include <QPlainTextEdit>
#include <QTextBlock>

using State = RunRecord::State;

// What the window offers at once when a run has failed.
class tst_offered_cures : public WindowTest
{
    Q_OBJECT

private:
    QString m_machines;

    QPushButton* button() const { return m_stage->find<QPushButton>("runCureButton"); }
    QLabel* label() const { return m_stage->find<QLabel>("runProblemLabel"); }
    RunArchive archive() const { return RunArchive(m_stage->desk().path("user/runs")); }

    void runWithError(const QByteArray& message, bool isParallel = false) const
    {
        if (isParallel) {
            m_stage->find<QCheckBox>("parallelBox")->click();
        }
        m_stage->run(m_stage->model("m.nec", "errs " + message));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, exit code 3"), longTime);
    }

    void waitForCure(const char* title) const
    {
        QTRY_VERIFY_WITH_TIMEOUT(button()->isVisible(), longTime);
        QCOMPARE(button()->text(), text(title));
    }

private Q_SLOTS:
    void init()
    {
        setUp();
        m_machines = m_stage->desk().path("user/machines.kest");
    }

    void cleanup() { tearDown(); }

    void problemOfTheNewestRunIsShownWithItsCure_data()
    {
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<QString>("title");
        // clang-format off
        QTest::newRow("card")   << QByteArray("2101: unknown card 'QX' (m.nec, line 1)")                << text("&Open the card");
        QTest::newRow("engine") << QByteArray("the engine 'nec2c' is not in the search path, install it") << text("&Install the engine...");
        QTest::newRow("host")   << QByteArray("the host 'b' does not answer any more")                  << text("Run without the &host...");
        // clang-format on
    }

    void problemOfTheNewestRunIsShownWithItsCure()
    {
        QFETCH(QByteArray, message);
        QFETCH(QString, title);
        QVERIFY(!button()->isVisible());
        runWithError(message);
        waitForCure(title.toUtf8().constData());
        QCOMPARE(label()->text(), QString::fromUtf8(message));
        QVERIFY(!button()->toolTip().isEmpty());
    }

    void problemsWithoutACureAreNotShown()
    {
        runWithError("the disk is full");
        QTRY_VERIFY_WITH_TIMEOUT(archive().record(1) && archive().record(1)->hasEnded(), longTime);
        QTest::qWait(1500); // the archive has been looked at since
        QVERIFY(!button()->isVisible() && !label()->isVisible());
    }

    void cureFollowsTheSelection()
    {
        runWithError("2101: unknown card 'QX' (m.nec, line 1)");
        waitForCure("&Open the card");
        m_stage->run(m_stage->model("n.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QVERIFY(!button()->isVisible());
        m_stage->find<QTableView>("runList")->selectRow(m_stage->rowOf(0));
        waitForCure("&Open the card");
    }

    void runOfAnEarlierSessionHasItsCure()
    {
        runWithError("2101: unknown card 'QX' (m.nec, line 1)");
        QTRY_VERIFY_WITH_TIMEOUT(archive().record(1) && archive().record(1)->hasEnded(), longTime);
        m_stage->close();
        m_stage->open();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        m_stage->find<QTableView>("runList")->selectRow(0);
        waitForCure("&Open the card");
    }

    void runThatDidNotStartIsMended()
    {
        writeFile(m_machines, "# no host\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        {
            const BoxAnswerer cancelling(BoxAnswerer::clicking(text("Cancel")));
            m_stage->run(m_stage->model("m.nec", "valid"));
            QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("not started"), longTime);
        }
        waitForCure("&Use this machine");
        QTest::mouseClick(button(), Qt::LeftButton);
        QVERIFY(contentOf(m_machines).contains("\nlocalhost:"));
        QVERIFY2(m_stage->outcomeText().startsWith(text("The machines file names this machine")),
                 qPrintable(m_stage->outcomeText()));
    }

    void runIsRunAgainWithoutTheHost()
    {
        writeFile(m_machines, "a:2\nb:1\n");
        runWithError("the host 'b' cannot be reached any more by ssh (code 255)", true);
        waitForCure("Run without the &host...");
        BoxAnswerer agreeing(BoxAnswerer::clicking(text("&Run again")));
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 2, longTime);
        QCOMPARE(agreeing.texts.size(), 1);
        QVERIFY2(agreeing.texts.first().contains(text("\n# b:1\n")),
                 qPrintable(agreeing.texts.first()));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("fault, exit code 3"), longTime);
        QCOMPARE(contentOf(m_stage->desk().path("models/m.nec.machines")),
                 QByteArray("a:2\n# b:1\n"));
        QCOMPARE(contentOf(m_machines), QByteArray("a:2\nb:1\n"));
        QTRY_VERIFY_WITH_TIMEOUT(
            archive().record(2).value_or(RunRecord()).hasEnded() && archive().record(2), longTime);
        QCOMPARE(archive().record(2)->leftOutHosts, QStringList(text("b")));
        QCOMPARE(archive().record(2)->repeats, 1);
    }

    void hostIsKeptUnlessTheUserAgrees()
    {
        writeFile(m_machines, "a:2\nb:1\n");
        runWithError("the host 'b' cannot be reached any more by ssh (code 255)", true);
        waitForCure("Run without the &host...");
        const BoxAnswerer refusing(BoxAnswerer::clicking(text("Cancel")));
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(refusing.texts.size(), 1, longTime);
        QTest::qWait(200);
        QCOMPARE(m_stage->runCount(), 1);
    }

    void fileIsOpenedAtTheHostThatCannotBeLeftOut()
    {
        writeFile(m_machines, "# the fast ones\nb:1\n");
        runWithError("the host 'b' cannot be reached any more by ssh (code 255)", true);
        waitForCure("Run without the &host...");
        QString line;
        const ModalVisitor visitor([&line](QDialog& dialog) {
            auto* const edit = dialog.findChild<QPlainTextEdit*>(text("machinesText"));
            line = edit != nullptr ? edit->textCursor().block().text() : text("no such dialog");
            dialog.reject();
        });
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(line, text("b:1"), longTime);
        QCOMPARE(m_stage->outcomeText(),
                 text("b is the only host in the machines file of the run."));
        QCOMPARE(m_stage->runCount(), 1);
    }

    // The remote host is not in the machines file.
    void anotherRemoteHostIsChosenInTheLaunchOptions()
    {
        m_stage->setOption("Kest.RemoteHost", text("b"));
        m_stage->find<QCheckBox>("remoteBox")->click();
        runWithError("the host 'b' does not answer");
        waitForCure("Run without the &host...");
        QString opened;
        const ModalVisitor visitor([&opened](QDialog& dialog) {
            opened = dialog.objectName();
            dialog.reject();
        });
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(opened, text("launchOptionsDialog"), longTime);
    }
};

QTEST_MAIN(tst_offered_cures)

#include "tst_offered_cures.moc"
