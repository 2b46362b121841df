// SPDX-License-Identifier: MIT
#include "ResultTable.h"
#include "TableDifference.h"

#include <QtTest>

using suite::ResultTable;
using suite::TableDifference;

namespace {

ResultTable table(const QByteArray& rows)
{
    ResultTable result =
        ResultTable::parse("frequency_MHz,resistance_ohm,reactance_ohm,swr\n" + rows);
    if (!result.error.isEmpty()) {
        qFatal("%s", qPrintable(result.error));
    }
    return result;
}

} // namespace

class tst_table_difference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differencesAreFound_data()
    {
        QTest::addColumn<QByteArray>("left");
        QTest::addColumn<QByteArray>("right");
        QTest::addColumn<QVector<int>>("counts"); // common, only left, only right, unknown
        QTest::addColumn<double>("largest");
        QTest::addColumn<double>("frequency");
        QTest::newRow("equal") << QByteArray("1,3,4,2\n2,5,6,2\n")
                               << QByteArray("1,3,4,2\n2,5,6,2\n") << QVector<int>{2, 0, 0, 0} << 0.
                               << 0.;
        QTest::newRow("another order")
            << QByteArray("1,3,4,2\n2,5,6,2\n") << QByteArray("2,5,6,2\n1,3,4,2\n")
            << QVector<int>{2, 0, 0, 0} << 0. << 0.;
        QTest::newRow("the largest counts")
            << QByteArray("1,3,4,2\n2,0,10,2\n") << QByteArray("1,3,4.5,2\n2,0,8,2\n")
            << QVector<int>{2, 0, 0, 0} << 0.2 << 2.;
        // A reactance around zero says nothing about the impedance.
        QTest::newRow("small part of a large impedance")
            << QByteArray("1,100,0.1,2\n") << QByteArray("1,100,-0.1,2\n")
            << QVector<int>{1, 0, 0, 0} << 0.002 << 1.;
        QTest::newRow("frequencies of one only")
            << QByteArray("1,3,4,2\n2,3,4,2\n5,3,4,2\n") << QByteArray("2,3,4,2\n3,3,4,2\n")
            << QVector<int>{1, 2, 1, 0} << 0. << 0.;
        QTest::newRow("known in one only") << QByteArray("1,3,4,2\n") << QByteArray("1,,,\n")
                                           << QVector<int>{1, 0, 0, 1} << 0. << 0.;
        QTest::newRow("unknown in both")
            << QByteArray("1,,,\n") << QByteArray("1,,,\n") << QVector<int>{1, 0, 0, 0} << 0. << 0.;
        QTest::newRow("digits of a table")
            << QByteArray("299.7924581,3,4,2\n") << QByteArray("299.79245810001,3,4,2\n")
            << QVector<int>{1, 0, 0, 0} << 0. << 0.;
        QTest::newRow("no impedance at all")
            << QByteArray("1,0,0,inf\n") << QByteArray("1,0,0,inf\n") << QVector<int>{1, 0, 0, 0}
            << 0. << 0.;
    }

    void differencesAreFound()
    {
        QFETCH(QByteArray, left);
        QFETCH(QByteArray, right);
        const auto found = TableDifference::of(table(left), table(right));
        const QVector<int> counts = {found.common, found.onlyLeft, found.onlyRight, found.unknown};
        QTEST(counts, "counts");
        QFETCH(double, largest);
        QVERIFY2(qAbs(found.largest - largest) < 1e-4, qPrintable(QString::number(found.largest)));
        QTEST(found.frequency, "frequency");
        const bool expectsNone =
            counts.at(1) == 0 && counts.at(2) == 0 && counts.at(3) == 0 && largest == 0;
        QCOMPARE(found.isNone(), expectsNone);
    }

    void impedancesOfTheLargestDifferenceAreGiven()
    {
        const auto found =
            TableDifference::of(table("1,3,4,2\n2,6,8,2\n"), table("1,3,4,2\n2,6,7,2\n"));
        QCOMPARE(found.left.reactance, 8.);
        QCOMPARE(found.right.reactance, 7.);
        QCOMPARE(found.right.resistance, 6.);
    }
};

QTEST_GUILESS_MAIN(tst_table_difference)
#include "tst_table_difference.moc"
