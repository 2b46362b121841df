// SPDX-License-Identifier: MIT
#include "MessageTables.h"

#include <DialogStage.h>

#include <QtVersion.h>

#include <QAction>
#include <QClipboard>
#include <QtTest>

namespace {

QAction* action(const QWidget* widget, const char* text)
{
    const QList<QAction*> actions = widget->actions();
    for (QAction* const candidate : actions) {
        if (candidate->text() == QLatin1String(text)) {
            return candidate;
        }
    }
    return nullptr;
}

} // namespace

class tst_common_KestProcessOutputTableWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsColumns_data();
    void hasItsColumns();
    void hasItsActions();
    void takesMessagesApart_data();
    void takesMessagesApart();
    void countsEqualDescriptions_data();
    void countsEqualDescriptions();
    void tellsWhoWatchesThatCountsChanged();
    void copiesTheSelectedRows();
    void copiesByKey();
    void copiesNothing();
    void findsTheCurrentRowInTheOutput();
    void findsByKey_data();
    void findsByKey();
    void findsNothingWithoutCurrentRow();
};

void tst_common_KestProcessOutputTableWidget::hasItsColumns_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("header");

    QTest::newRow("notices") << 1 << QStringLiteral("Notice ID");
    QTest::newRow("warnings") << 2 << QStringLiteral("Warning ID");
}

void tst_common_KestProcessOutputTableWidget::hasItsColumns()
{
    QFETCH(int, tab);
    QFETCH(QString, header);
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.tabs()->setCurrentIndex(tab);
    stage.runner->notice(QStringLiteral("NOTE 12: text"));
    stage.runner->warning(QStringLiteral("WARNING 12: text"));
    const auto* const table = qobject_cast<QTableWidget*>(stage.tabs()->widget(tab));

    QCOMPARE(QLatin1String(table->metaObject()->className()),
             QLatin1String("common_KestProcessOutputTableWidget"));
    QCOMPARE(table->columnCount(), 3);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), header);
    QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("Count"));
    QCOMPARE(table->horizontalHeaderItem(2)->text(), QStringLiteral("Description"));
    QCOMPARE(table->columnWidth(0), 80);
    QCOMPARE(table->columnWidth(1), 45);
    QVERIFY(table->horizontalHeader()->stretchLastSection());
    QVERIFY(table->horizontalHeader()->isVisible());
    QVERIFY(!table->verticalHeader()->isVisible());
    QVERIFY(table->wordWrap());
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(table->font().family(), QStringLiteral("Courier"));
    QCOMPARE(table->font().pointSize(), 9);
    QCOMPARE(int(table->font().weight()), QtVersion::fontWeight(2));
    QVERIFY(!table->font().italic());
    QCOMPARE(table->item(0, 0)->textAlignment(), static_cast<int>(Qt::AlignCenter));
    QCOMPARE(table->item(0, 1)->textAlignment(), static_cast<int>(Qt::AlignCenter));
    QCOMPARE(table->item(0, 1)->toolTip(), QStringLiteral("Number of occurrences of this message"));
    QVERIFY(table->item(0, 0)->toolTip().isEmpty());
    QVERIFY(table->item(0, 2)->toolTip().isEmpty());
}

void tst_common_KestProcessOutputTableWidget::hasItsActions()
{
    const DialogStage stage;
    for (const QTableWidget* const table : {stage.notices(), stage.warnings()}) {
        QStringList texts;
        QStringList shortcuts;
        const QList<QAction*> actions = table->actions();
        for (const QAction* const candidate : actions) {
            QCOMPARE(candidate->parent(), table);
            texts.append(candidate->text());
            shortcuts.append(candidate->shortcut().toString());
        }
        QCOMPARE(texts, (strings({"Copy", "Select all", "Find in output"})));
        QCOMPARE(shortcuts, (strings({"Ctrl+C", "Ctrl+A", "Ctrl+F"})));
        for (const char* const slot : {"copy()", "findInOutput()", "selectAll()"}) {
            const int index = table->metaObject()->indexOfSlot(slot);
            QVERIFY2(index >= 0, slot);
            QCOMPARE(table->metaObject()->method(index).access(), QMetaMethod::Public);
        }
    }
}

void tst_common_KestProcessOutputTableWidget::takesMessagesApart_data()
{
    QTest::addColumn<QString>("warning");
    QTest::addColumn<QStringList>("row");

    QTest::newRow("plain") << QStringLiteral("WARNING 123: too short")
                           << strings({"123", "1", "too short"});
    QTest::newRow("lower case") << QStringLiteral("warning 7: x") << strings({"7", "1", "x"});
    QTest::newRow("blanks") << QStringLiteral("  WARNING   8:  a   b  ")
                            << strings({"8", "1", "a b"});
    QTest::newRow("several colons")
        << QStringLiteral("WARNING 9: a: b: c") << strings({"9", "1", "c"});
    QTest::newRow("colons in the identifier")
        << QStringLiteral("WARNING 1:2:3 x") << strings({"123", "1", "3 x"});
    QTest::newRow("words in front of the colon")
        << QStringLiteral("WARNING 5 in line 6: x") << strings({"5", "1", "x"});
    QTest::newRow("no description") << QStringLiteral("WARNING 10:") << strings({"10", "1", ""});
    QTest::newRow("twice the word")
        << QStringLiteral("WARNING 4: a WARNING b") << strings({"4", "1", "a b"});
    QTest::newRow("word in the middle")
        << QStringLiteral("a WARNING 4: b") << strings({"a", "1", "b"});
    QTest::newRow("no colon") << QStringLiteral("WARNING 123 too short") << QStringList();
    QTest::newRow("colon first") << QStringLiteral("WARNING : x") << QStringList();
    QTest::newRow("colons only") << QStringLiteral("WARNING :::") << QStringList();
    QTest::newRow("nothing") << QStringLiteral("WARNING ") << QStringList();
    QTest::newRow("not numbered") << QStringLiteral("WARNING: x") << QStringList();
    QTest::newRow("no word") << QStringLiteral("123: x") << QStringList();
    QTest::newRow("markup is text")
        << QStringLiteral("WARNING 1: <b>x</b>") << strings({"1", "1", "<b>x</b>"});
    QTest::newRow("percent signs")
        << QStringLiteral("WARNING %1: %2 %3") << strings({"%1", "1", "%2 %3"});
}

void tst_common_KestProcessOutputTableWidget::takesMessagesApart()
{
    QFETCH(QString, warning);
    QFETCH(QStringList, row);
    const DialogStage stage;
    stage.runner->warning(warning);
    QCOMPARE(cells(stage.warnings()), row);

    QString notice = warning;
    notice.replace(QStringLiteral("warning "), QStringLiteral("NOTE "), Qt::CaseInsensitive);
    for (QString& text : row) {
        text.replace(QStringLiteral("warning "), QStringLiteral("NOTE "), Qt::CaseInsensitive);
    }
    stage.runner->notice(notice);
    QCOMPARE(cells(stage.notices()), row);
}

void tst_common_KestProcessOutputTableWidget::countsEqualDescriptions_data()
{
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char* name, Texts messages, Texts counts) {
        QTest::newRow(name) << strings(messages) << strings(counts);
    };
    row("one", {"1: a"}, {"1"});
    row("repeated", {"7: a", "7: a", "7: a"}, {"3", "2", "1"});
    row("other identifiers", {"7: a", "8: a"}, {"2", "1"});
    row("cases", {"7: Abc", "7: aBC"}, {"2", "1"});
    row("cases of other letters", {"7: \u00c4\u0434", "7: \u00e4\u0414"}, {"2", "1"});
    row("sharp s is not ss", {"7: \u00df", "7: ss"}, {"1", "1"});
    row("different", {"7: a", "7: b"}, {"1", "1"});
    row("an identifier", {"abc: x", "5: ABC"}, {"2", "1"});
    row("identifier and description of a row", {"5: 5", "9: 5"}, {"3", "1"});
    row("all three texts of a row", {"1: 1", "9: 1"}, {"4", "1"});
    row("a count", {"7: a", "8: b", "9: 1"}, {"2", "2", "1"});
    row("a count that is raised meanwhile", {"7: a", "8: a", "9: 1", "9: 2"}, {"3", "3", "1", "1"});
    row("counts that become equal", {"7: a", "8: a", "9: 1", "9: 2", "9: 3"},
        {"4", "4", "1", "1", "1"});
    row("no count is written so", {"7: a", "8: 01", "9: +1", "9: 1."}, {"1", "1", "1", "1"});
    row("empty", {"7:", "8:", "9: x"}, {"2", "1", "1"});
    row("its own identifier", {"7: 7"}, {"1"});
    row("beyond every count", {"7: 99999999999999", "8: 99999999999999"}, {"2", "1"});
}

void tst_common_KestProcessOutputTableWidget::countsEqualDescriptions()
{
    QFETCH(QStringList, messages);
    QFETCH(QStringList, expected);
    const DialogStage stage;
    SlowTable slow;
    for (const QString& message : qAsConst(messages)) {
        stage.runner->warning(QStringLiteral("WARNING ") + message);
        slow.add(message);
    }
    QCOMPARE(counts(&slow), expected);
    QCOMPARE(counts(stage.warnings()), expected);
}

void tst_common_KestProcessOutputTableWidget::tellsWhoWatchesThatCountsChanged()
{
    const DialogStage stage;
    stage.runner->notice(QStringLiteral("NOTE 3: same"));
    QCoreApplication::processEvents();
    int told = 0;
    QString count;
    connect(stage.notices()->model(), &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex& topLeft, const QModelIndex& bottomRight) {
                if (topLeft.row() == 0 && bottomRight.row() == 2 && topLeft.column() == 1) {
                    ++told;
                    count = topLeft.data().toString();
                }
            });
    stage.runner->notice(QStringLiteral("NOTE 3: same"));
    stage.runner->notice(QStringLiteral("NOTE 3: same"));
    QCoreApplication::processEvents();
    QCOMPARE(told, 1);
    QCOMPARE(count, QStringLiteral("3"));
}

void tst_common_KestProcessOutputTableWidget::copiesTheSelectedRows()
{
    const DialogStage stage;
    stage.runner->notice(QStringLiteral("NOTE 1234: abc"));
    for (int number = 0; number < 5; ++number) {
        stage.runner->notice(QStringLiteral("NOTE %1: text %1 %2").arg(number));
    }
    QTableWidget* const table = stage.notices();
    table->selectRow(0);
    action(table, "Copy")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("NOTICE 1234: abc\r\n"));

    table->setSelectionMode(QAbstractItemView::MultiSelection);
    table->selectRow(2);
    table->selectRow(3);
    table->selectRow(5);
    action(table, "Copy")->trigger();
    QStringList lines =
        QApplication::clipboard()->text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    lines.sort();
    QCOMPARE(lines, (strings({"NOTICE 1234: abc", "NOTICE 1: text 1 %2", "NOTICE 2: text 2 %2",
                              "NOTICE 4: text 4 %2"})));

    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    action(table, "Select all")->trigger();
    action(table, "Copy")->trigger();
    QCOMPARE(QApplication::clipboard()->text().count(QStringLiteral("\r\n")), 6);
    QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("NOTICE 1234: abc\r\n"
                                                                        "NOTICE 0: text 0")));
}

void tst_common_KestProcessOutputTableWidget::copiesByKey()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 9: by key"));
    stage.runner->warning(QStringLiteral("WARNING 10: by key"));
    stage.tabs()->setCurrentIndex(2);
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    stage.warnings()->setFocus();
    QTest::keyClick(stage.warnings(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(stage.warnings(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("WARNING 9: by key\r\nWARNING 10: by key\r\n"));
}

void tst_common_KestProcessOutputTableWidget::copiesNothing()
{
    const DialogStage stage;
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    QApplication::clipboard()->setText(QStringLiteral("before"));
    action(stage.notices(), "Copy")->trigger();
    QVERIFY(QApplication::clipboard()->text().isEmpty());
}

void tst_common_KestProcessOutputTableWidget::findsTheCurrentRowInTheOutput()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 1: first text"));
    stage.runner->warning(QStringLiteral("WARNING 2: second text"));
    stage.tabs()->setCurrentIndex(2);
    stage.warnings()->setCurrentCell(1, 2);
    QSignalSpy doubleClicked(stage.warnings(), &QTableWidget::cellDoubleClicked);
    action(stage.warnings(), "Find in output")->trigger();
    QCOMPARE(doubleClicked.count(), 1);
    QCOMPARE(doubleClicked.at(0), (QVariantList{1, 2}));
    QCOMPARE(stage.tabs()->currentIndex(), 0);
    QCOMPARE(stage.output()->textCursor().selectedText(), QStringLiteral("second text"));
}

void tst_common_KestProcessOutputTableWidget::findsByKey_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");

    QTest::newRow("notice") << 1 << QStringLiteral("a notice");
    QTest::newRow("warning") << 2 << QStringLiteral("a warning");
}

// Both tables have the key; it is that of the one in front.
void tst_common_KestProcessOutputTableWidget::findsByKey()
{
    QFETCH(int, tab);
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->notice(QStringLiteral("NOTE 1: a notice"));
    stage.runner->warning(QStringLiteral("WARNING 1: a warning"));
    stage.tabs()->setCurrentIndex(tab);
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    auto* const table = qobject_cast<QTableWidget*>(stage.tabs()->widget(tab));
    table->setFocus();
    table->setCurrentCell(0, 0);
    QTest::keyClick(table, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(stage.tabs()->currentIndex(), 0);
    QTEST(stage.output()->textCursor().selectedText(), "text");
}

void tst_common_KestProcessOutputTableWidget::findsNothingWithoutCurrentRow()
{
    const DialogStage stage;
    stage.tabs()->setCurrentIndex(1);
    QSignalSpy doubleClicked(stage.notices(), &QTableWidget::cellDoubleClicked);
    action(stage.notices(), "Find in output")->trigger();
    QCOMPARE(doubleClicked.count(), 0);
    QCOMPARE(stage.tabs()->currentIndex(), 1);
}

QTEST_MAIN(tst_common_KestProcessOutputTableWidget)
#include "tst_common_KestProcessOutputTableWidget.moc"
