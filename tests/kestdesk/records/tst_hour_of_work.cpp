// SPDX-License-Identifier: MIT
#include "../support/WindowTest.h"

#include <RecordWindow.h>
#include <RunArchive.h>

#include <QTextEdit>

// What an engineer does with kestdesk in an hour, from a queue of models to the file for support.
class tst_hour_of_work : public WindowTest
{
    Q_OBJECT

private:
    QStringList states() const
    {
        QStringList result;
        for (int run = 0; run < m_stage->runCount(); ++run) {
            result.append(m_stage->cell(run, "Model") + text(": ") + m_stage->state(run));
        }
        return result;
    }

    // What the first page of the record's window says; runs are numbered from 0 on, records from 1.
    QString summaryOf(int run) const
    {
        m_stage->find<QTableView>("runList")->selectRow(m_stage->rowOf(run));
        m_stage->find<QAction>("showRecordAction")->trigger();
        QString summary;
        const auto isRead = [&summary, run] {
            const QList<QWidget*> windows = QApplication::topLevelWidgets();
            for (QWidget* const widget : windows) {
                const auto* const window = qobject_cast<RecordWindow*>(widget);
                if (window != nullptr && window->number() == run + 1) {
                    summary = window->findChild<QTextEdit*>(text("summaryPage"))->toPlainText();
                }
            }
            return summary.contains(text("runkest"));
        };
        return QTest::qWaitFor(isRead, longTime) ? summary : QString();
    }

private Q_SLOTS:
    void init()
    {
        m_stage.reset();
        m_stage = std::make_unique<WindowStage>();
        m_stage->setPreference("runsAtOnce", 1);
        m_stage->open();
    }

    void cleanup() { tearDown(); }

    void queuedRunsAreExplainedMendedComparedAndExported()
    {
        const QString broken = m_stage->model("broken.nec", "fault");
        m_stage->window().openModels({m_stage->model("first.nec", "valid"), broken,
                                      m_stage->model("killed.nec", "wait"),
                                      m_stage->model("last.nec", "valid")});
        m_stage->find<QPushButton>("releaseAllButton")->click();
        QTRY_VERIFY_WITH_TIMEOUT(states().contains(text("killed.nec: running")), longTime);
        m_stage->endRuns(SIGKILL);
        const QStringList ended{text("first.nec: valid"), text("broken.nec: fault, exit code 3"),
                                text("killed.nec: fault, SIGKILL"), text("last.nec: valid")};
        QTRY_COMPARE_WITH_TIMEOUT(states(), ended, longTime);

        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->close();
        m_stage->open();
        QTRY_COMPARE_WITH_TIMEOUT(states(), ended, longTime);
        const QString why = summaryOf(2);
        QVERIFY2(why.contains(text("SIGKILL")) && why.contains(text("out of memory")),
                 qPrintable(why));
        QVERIFY(summaryOf(1).contains(text("exit code 3")));

        m_stage->model("broken.nec", "valid");
        m_stage->run(broken);
        QTRY_VERIFY_WITH_TIMEOUT(states().contains(text("broken.nec: valid")), longTime);
        const RunArchive archive(m_stage->desk().path("user/runs"));
        QTRY_VERIFY_WITH_TIMEOUT(archive.record(5) && archive.record(5)->hasEnded(), longTime);

        const Desk::Result compared =
            m_stage->desk().run({text("runs"), text("compare"), text("2"), text("5")});
        QCOMPARE(compared.exitCode, 1);
        QVERIFY2(compared.output.contains(text("fault")) && compared.output.contains(text("valid")),
                 qPrintable(compared.output));
        const QString file = m_stage->desk().path("run5.zip");
        const Desk::Result exported =
            m_stage->desk().run({text("runs"), text("export"), text("5"), file});
        QCOMPARE(exported.exitCode, 0);
        QVERIFY(contentOf(file).startsWith("PK"));
    }
};

QTEST_MAIN(tst_hour_of_work)

#include "tst_hour_of_work.moc"
