// SPDX-License-Identifier: MIT
#include "MessageTables.h"

#include <DialogStage.h>
#include <TestRandom.h>

#include <QtTest>

#include <ctime>

namespace {

QVector<int> heights(const QTableWidget* table)
{
    QVector<int> result;
    for (int row = 0; row < table->rowCount(); ++row) {
        result.append(table->rowHeight(row));
    }
    return result;
}

} // namespace

class tst_common_KestProcessOutputTableWidget_rows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsAsTheSlowTableDoes_data();
    void countsAsTheSlowTableDoes();
    void rightBeforeTheTurnEnds();
    void fitsRowsAsTheSlowTableDoes();
    void fitsAllRowsAgainWhenColumnsHaveChanged();
    void fitsRowsThatCameWhileTheDetailsWereHidden();
    void isFastForManyMessages_data();
    void isFastForManyMessages();
    void fitsVeryManyRows();
    void fitsTenTimesTheRowsInNoMuchMoreThanTenTimesTheTime();
};

void tst_common_KestProcessOutputTableWidget_rows::countsAsTheSlowTableDoes_data()
{
    QTest::addColumn<QStringList>("identifiers");
    QTest::addColumn<QStringList>("descriptions");

    const QStringList words =
        strings({"a", "A", "b", "too short", "Too  Short", "\u00e9", "\u00c9"});
    const QStringList numbers = strings({"1", "2", "3", "4", "5", "6", "7", "8", "01", "-1", "0"});
    const QStringList odd =
        strings({"", "\u00df", "ss", "SS", "\u1e9e", "\u0130", "i", "I", "\u0131", "\U00010400",
                 "\U00010428", "\u03c3", "\u03c2", "\u03a3", "\u212a", "k", "\ufb01", "fi"});
    QTest::newRow("words") << strings({"10", "11"}) << words;
    QTest::newRow("numbers") << strings({"10", "11", "1", "2"}) << numbers;
    QTest::newRow("ones and twos") << strings({"1", "x"}) << strings({"1", "2"});
    QTest::newRow("words and numbers") << words + numbers << words + numbers;
    QTest::newRow("odd letters") << strings({"i", "\u00df"}) + words << odd;
    QTest::newRow("everything") << words + numbers + odd << words + numbers + odd;
}

void tst_common_KestProcessOutputTableWidget_rows::countsAsTheSlowTableDoes()
{
    QFETCH(QStringList, identifiers);
    QFETCH(QStringList, descriptions);
    QRandomGenerator random = TestRandom::usual(1);
    const auto oneOf = [&random](const QStringList& texts) {
        return texts.at(static_cast<int>(random.bounded(static_cast<quint32>(texts.size()))));
    };
    for (int round = 0; round < 12; ++round) {
        const DialogStage stage;
        SlowTable slow;
        for (int number = 0; number < 60; ++number) {
            const QString message =
                QStringLiteral("x%1: %2").arg(oneOf(identifiers).simplified(), oneOf(descriptions));
            const QString plain = message.mid(random.bounded(2));
            stage.runner->warning(QStringLiteral("WARNING ") + plain);
            slow.add(plain.simplified());
            QCOMPARE(counts(stage.warnings()), counts(&slow));
        }
        QCOMPARE(cells(stage.warnings()), cells(&slow));
    }
}

void tst_common_KestProcessOutputTableWidget_rows::rightBeforeTheTurnEnds()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    for (int number = 1; number <= 5; ++number) {
        stage.runner->notice(QStringLiteral("NOTE 3: same"));
        QCOMPARE(stage.notices()->rowCount(), number);
        QCOMPARE(stage.notices()->item(0, 1)->text(), QString::number(number));
        QCOMPARE(stage.notices()->model()->index(0, 1).data().toString(), QString::number(number));
        QCOMPARE(stage.notices()->item(number - 1, 1)->text(), QStringLiteral("1"));
        QCOMPARE(stage.tabs()->tabText(1), QStringLiteral("Notices(%1)").arg(number));
    }
}

void tst_common_KestProcessOutputTableWidget_rows::fitsRowsAsTheSlowTableDoes()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.tabs()->setCurrentIndex(2);
    QCoreApplication::processEvents();
    SlowTable slow;
    slow.resize(stage.warnings()->size());
    slow.show();
    for (int words = 0; words < 60; ++words) {
        const QString message = QStringLiteral("%1: begin").arg(words % 40) +
                                QStringLiteral(" another").repeated(words % 40 * words % 61);
        stage.runner->warning(QStringLiteral("WARNING ") + message);
        slow.add(message);
        if (words % 7 == 0) {
            QCoreApplication::processEvents();
        }
    }
    QCoreApplication::processEvents();
    for (int column = 0; column < 3; ++column) { // the scroll bar has made one narrower
        slow.setColumnWidth(column, stage.warnings()->columnWidth(column));
    }
    stage.runner->warning(QStringLiteral("WARNING 1: last"));
    slow.add(QStringLiteral("1: last"));
    QCoreApplication::processEvents();
    QCOMPARE(heights(stage.warnings()), heights(&slow));
    QVERIFY(stage.warnings()->rowHeight(7) > stage.warnings()->rowHeight(0));
}

void tst_common_KestProcessOutputTableWidget_rows::fitsAllRowsAgainWhenColumnsHaveChanged()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    stage.tabs()->setCurrentIndex(2);
    const QString longText = QStringLiteral("words ").repeated(40);
    stage.runner->warning(QStringLiteral("WARNING 1: ") + longText);
    QCoreApplication::processEvents();
    const int height = stage.warnings()->rowHeight(0);

    stage.dialog->resize(stage.dialog->width() * 2, stage.dialog->height());
    QTRY_VERIFY(stage.warnings()->rowHeight(0) < height);

    const int wide = stage.warnings()->rowHeight(0);
    QFont large = stage.warnings()->font();
    large.setPointSize(30);
    stage.warnings()->setFont(large);
    stage.runner->warning(QStringLiteral("WARNING 2: short"));
    QTRY_VERIFY(stage.warnings()->rowHeight(0) > wide);
}

void tst_common_KestProcessOutputTableWidget_rows::fitsRowsThatCameWhileTheDetailsWereHidden()
{
    const DialogStage stage;
    stage.runner->start();
    stage.runner->warning(QStringLiteral("WARNING 1: some words that fit into one line"));
    QCoreApplication::processEvents();
    stage.openDetails();
    stage.tabs()->setCurrentIndex(2);
    QTRY_VERIFY(stage.warnings()->rowHeight(0) <
                3 * QFontMetrics(stage.warnings()->font()).height());
}

void tst_common_KestProcessOutputTableWidget_rows::isFastForManyMessages_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("different");
    QTest::addColumn<QString>("firstCount");

    QTest::newRow("all equal") << QStringLiteral("WARNING 1: the same") << 1
                               << QStringLiteral("20000");
    QTest::newRow("all distinct") << QStringLiteral("WARNING %1: text %1") << 20000
                                  << QStringLiteral("1");
    QTest::newRow("equal numbers") << QStringLiteral("WARNING x: 7") << 1 << QString();
    QTest::newRow("distinct numbers") << QStringLiteral("WARNING x: %1") << 20000 << QString();
    QTest::newRow("few numbers") << QStringLiteral("WARNING %1: %1") << 10 << QString();
    QTest::newRow("empty") << QStringLiteral("WARNING 1:") << 1 << QStringLiteral("20000");
    QTest::newRow("colons only") << QStringLiteral("WARNING :::") << 1 << QString();
}

// The slow table needs many minutes for each of these.
void tst_common_KestProcessOutputTableWidget_rows::isFastForManyMessages()
{
    QFETCH(QString, pattern);
    QFETCH(int, different);
    QFETCH(QString, firstCount);
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    QElapsedTimer timer;
    timer.start();
    for (int number = 0; number < 20000; ++number) {
        QString message = pattern;
        stage.runner->warning(
            message.replace(QStringLiteral("%1"), QString::number(number % different)));
        if (number % 500 == 0) {
            QCoreApplication::processEvents();
        }
    }
    QCoreApplication::processEvents();
    QVERIFY2(timer.elapsed() < 60000, qPrintable(QString::number(timer.elapsed())));
    if (!firstCount.isEmpty()) {
        QCOMPARE(stage.warnings()->item(0, 1)->text(), firstCount);
    }
    QCOMPARE(stage.warnings()->rowCount(), pattern.endsWith(QStringLiteral(":::")) ? 0 : 20000);
}

namespace {

constexpr int manyRows = 20000;

// The last row is higher than a row that was not fitted.
QString manyLinedMessage(int row, int rows)
{
    const int words = row == rows - 1 ? 200 : row * 7 % 40;
    return QStringLiteral("%1: text %1").arg(row) + QStringLiteral(" another").repeated(words);
}

/// Has the warnings in front, and very many of them.
class FullStage : public DialogStage
{
public:
    explicit FullStage(int rows)
    {
        runner->start();
        openDetails();
        tabs()->setCurrentIndex(2);
        for (int row = 0; row < rows; ++row) {
            runner->warning(QStringLiteral("WARNING ") + manyLinedMessage(row, rows));
            if (row % 100 == 0) {
                QCoreApplication::processEvents();
            }
        }
    }

    // The rows are fitted from the first to the last.
    bool waitForHeights() const
    {
        const int last = warnings()->rowCount() - 1;
        const int line = QFontMetrics(warnings()->font()).height();
        return QTest::qWaitFor([=] { return warnings()->rowHeight(last) > 5 * line; }, 60000);
    }
};

// Of the processor, which no other process can make longer.
double secondsToFit(int rows)
{
    const std::clock_t begin = std::clock();
    const FullStage stage(rows);
    const bool fitted = stage.waitForHeights();
    return fitted ? static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC : -1;
}

} // namespace

void tst_common_KestProcessOutputTableWidget_rows::fitsVeryManyRows()
{
    const FullStage stage(manyRows);
    const QTableWidget* const table = stage.warnings();
    QCOMPARE(table->rowCount(), manyRows);
    for (int row = 0; row < manyRows; ++row) {
        const QString message = manyLinedMessage(row, manyRows);
        QCOMPARE(table->item(row, 0)->text(), QString::number(row));
        QCOMPARE(table->item(row, 1)->text(), QStringLiteral("1"));
        QCOMPARE(table->item(row, 2)->text(), message.section(QStringLiteral(": "), 1));
    }

    QVERIFY(stage.waitForHeights());
    QCOMPARE(table->columnWidth(0), 80);
    QCOMPARE(table->columnWidth(1), 45);
    QCOMPARE(table->columnWidth(2), table->viewport()->width() - 80 - 45);
    SlowTable slow;
    slow.setRowCount(manyRows);
    for (int column = 0; column < 3; ++column) {
        slow.setColumnWidth(column, table->columnWidth(column));
        for (int row = 0; row < manyRows; ++row) {
            slow.setItem(row, column, new QTableWidgetItem(table->item(row, column)->text()));
        }
    }
    slow.resizeRowsToContents();
    QTRY_COMPARE_WITH_TIMEOUT(heights(table), heights(&slow), 60000);
    QCOMPARE(table->verticalHeader()->length(), slow.verticalHeader()->length());
}

// Each row once would be ten times as long, each row for every new one a hundred times.
void tst_common_KestProcessOutputTableWidget_rows::
    fitsTenTimesTheRowsInNoMuchMoreThanTenTimesTheTime()
{
    const double few = secondsToFit(manyRows / 10);
    const double many = secondsToFit(manyRows);
    QVERIFY(few > 0 && many > 0);
    QVERIFY2(many < 40 * few, qPrintable(QStringLiteral("%1 s and %2 s").arg(few).arg(many)));
}

QTEST_MAIN(tst_common_KestProcessOutputTableWidget_rows)
#include "tst_common_KestProcessOutputTableWidget_rows.moc"
