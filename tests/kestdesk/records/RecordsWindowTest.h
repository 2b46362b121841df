// SPDX-License-Identifier: MIT
#pragma once

#include "RecordMaker.h"
#include "WindowTest.h"

/// What tests of the window with records have: the records are made before it is opened.
class RecordsWindowTest : public WindowTest
{
protected:
    std::unique_ptr<RecordMaker> m_records;

    /// Opens no window.
    void setUpRecords()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        m_records = std::make_unique<RecordMaker>(m_stage->desk());
    }

    QTableView* list() const { return m_stage->find<QTableView>("runList"); }

    void waitForRuns(int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), count, longTime);
    }
};
