// SPDX-License-Identifier: MIT
#include "RecordMaker.h"
#include "WindowTest.h"

#include <FileChooser.h>

// A record is put into one file for somebody else.
class tst_export_action : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
    }

    void cleanup() { tearDown(); }

    void recordIsExported_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file"); // empty for none
        QTest::newRow("named") << text("for support.zip") << text("for support.zip");
        QTest::newRow("without the suffix") << text("support") << text("support.zip");
        QTest::newRow("cancelled") << QString() << QString();
    }

    void recordIsExported()
    {
        QFETCH(QString, name);
        QFETCH(QString, file);
        RecordMaker(m_stage->desk()).add("m.nec", RunRecord::State::Valid);
        m_stage->open();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        m_stage->find<QTableView>("runList")->selectRow(0);
        const FileChooser chooser(name.isEmpty() ? name : m_stage->desk().path(name));
        m_stage->find<QAction>("exportRunAction")->trigger();
        if (file.isEmpty()) {
            QTest::qWait(200);
            QCOMPARE(QDir(m_stage->desk().path(QString()))
                         .entryList({text("*.zip")}, QDir::Files)
                         .size(),
                     0);
            return;
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->outcomeText(),
                                  text("Run 1 was exported to ") + m_stage->desk().path(file),
                                  longTime);
        QVERIFY(contentOf(m_stage->desk().path(file)).startsWith("PK"));
    }
};

QTEST_MAIN(tst_export_action)

#include "tst_export_action.moc"
