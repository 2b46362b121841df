// SPDX-License-Identifier: MIT
#include "RecordMaker.h"
#include "WindowTest.h"

#include <RunTableModel.h>

using State = RunRecord::State;

// A record that cannot be read, in the list of runs.
class tst_damaged_record : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void itIsListedAndCanBeDeleted()
    {
        RecordMaker records(m_stage->desk());
        auto* const list = m_stage->find<QTableView>("runList");
        records.add("a.nec", State::Valid);
        const int number = records.add("b.nec", State::Fault);
        const QString folder = records.archive().record(number)->folder;
        writeFile(folder + text("/run.json"), QByteArray(R"({"format": 1})").chopped(1));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 2, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(1, "State"), text("damaged"), longTime);
        QCOMPARE(m_stage->cell(1, "No."), text("2"));
        QCOMPARE(m_stage->cell(1, "Folder"), QDir::toNativeSeparators(folder));
        QCOMPARE(m_stage->cell(1, "Elapsed"), text("1:15")); // its end is whole
        const QString toolTip =
            list->model()->index(0, RunTableModel::StateColumn).data(Qt::ToolTipRole).toString();
        QVERIFY2(toolTip.contains(text("run.json cannot be read")), qPrintable(toolTip));
        list->selectRow(0);
        for (const char* const action :
             {"showRecordAction", "runAgainAction", "exportRunAction", "copyCommandAction"}) {
            QVERIFY2(!m_stage->find<QAction>(action)->isEnabled(), action);
        }
        m_stage->find<QComboBox>("runStateBox")->setCurrentText(text("Damaged"));
        QCOMPARE(m_stage->runCount(), 1);
        const BoxAnswerer agreeing(BoxAnswerer::clicking(text("&Delete")));
        m_stage->find<QAction>("deleteRunsAction")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 0, longTime);
        QCOMPARE(records.archive().numbers(), QVector<int>({1}));
    }
};

QTEST_MAIN(tst_damaged_record)

#include "tst_damaged_record.moc"
