// SPDX-License-Identifier: MIT
#include <MessageTable.h>

#include <DialogStage.h>
#include <Text.h>

#include <QTableWidget>
#include <QtTest>

// What kestmark says about the tables is what the process dialog's tables have.
class tst_message_table : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsAreThoseOfTheDialog_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("message");
        for (const char* const message :
             {"WARNING 12: too fine", "warning 12: too fine", "  WARNING   12:  too   fine  ",
              "WARNING 12 too fine", "WARNING: x", "WARNING : x", "too fine", "12: too fine",
              "WARNING 12: a: b", "WARNING 12:", "WARNING WARNING 12: x", "a WARNING 1: b",
              "NOTE 12: all is well", "note 1:x", "NOTE 1 a:b:c", "NOTE :", "NOTE x", "",
              "WARNING NOTE 1: x"}) {
            for (const auto type :
                 {common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
                QTest::addRow("%d %s", type, message) << int(type) << text(message);
            }
        }
    }

    void rowsAreThoseOfTheDialog()
    {
        QFETCH(int, type);
        QFETCH(QString, message);
        const auto messageType = static_cast<common_IProcessMessage::Type>(type);
        DialogStage stage;
        stage.runner->say(messageType, message);
        const int tab = messageType == common_IProcessMessage::Notice ? 1 : 2;
        const auto* const table = qobject_cast<QTableWidget*>(stage.tabs()->widget(tab));
        QVERIFY(table != nullptr);
        const std::optional<ListedMessage> row = MessageTable::row(messageType, message);
        QCOMPARE(table->rowCount(), row ? 1 : 0);
        if (row) {
            QCOMPARE(row->identifier, table->item(0, 0)->text());
            QCOMPARE(row->description, table->item(0, 2)->text());
        }
    }
};

QTEST_MAIN(tst_message_table)
#include "tst_message_table.moc"
