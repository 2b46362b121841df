// SPDX-License-Identifier: MIT
#include "Export.h"
#include "Result.h"

#include <ReadingTime.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using suite::Quantity;

namespace {

const QByteArray header = QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

} // namespace

// A table of results is read whole or refused with a reason.
class tst_result : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsComeByRisingFrequency()
    {
        const Result result = Result::parse(header + "300,70,5,1.4\n100,10,-900,77\n");
        QCOMPARE(result.error, QString());
        QCOMPARE(result.points.size(), 2);
        QCOMPARE(result.points.at(0).frequency, 100.0);
        QCOMPARE(result.points.at(0).value(Quantity::Reactance), -900.0);
        QCOMPARE(result.points.at(1).value(Quantity::StandingWaveRatio), 1.4);
    }

    void missingAndInfiniteCellsAreNotKnown()
    {
        const Result result = Result::parse(header + "100,,,\r\n200,0,5,inf\n\n");
        QCOMPARE(result.error, QString());
        QCOMPARE(result.points.size(), 2);
        QVERIFY(std::isnan(result.points.at(0).value(Quantity::Resistance)));
        QVERIFY(std::isinf(result.points.at(1).value(Quantity::StandingWaveRatio)));
        QVERIFY(result.has(Quantity::Resistance));
        QVERIFY(!result.has(Quantity::StandingWaveRatio));
    }

    void marksOfOtherSystemsAreNoFault_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray crlf = QByteArray(header).replace("\n", "\r\n");
        QTest::newRow("Windows") << crlf + "100,1,2,3\r\n";
        QTest::newRow("byte order mark") << "\xef\xbb\xbf" + header + "100,1,2,3\n";
        QTest::newRow("no last line end") << header + "100,1,2,3";
        QTest::newRow("blanks") << header + "100 , 1, 2, 3 \n";
    }

    void marksOfOtherSystemsAreNoFault()
    {
        QFETCH(QByteArray, bytes);
        const Result result = Result::parse(bytes);
        QCOMPARE(result.error, QString());
        QCOMPARE(result.points.size(), 1);
        QCOMPARE(result.points.first().frequency, 100.0);
        QCOMPARE(result.points.first().value(Quantity::StandingWaveRatio), 3.0);
    }

    void whatIsNoTableIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("empty")           << QByteArray()                      << QStringLiteral("no table of results");
        QTest::newRow("other header")    << QByteArray("a,b,c\n1,2,3\n")      << QStringLiteral("no table of results");
        QTest::newRow("header only")     << header                            << QStringLiteral("holds no results");
        QTest::newRow("a word")          << header + "100,ten,5,1\n"          << QStringLiteral("line 2 is no result: \"100,ten,5,1\"");
        QTest::newRow("too few cells")   << header + "100,1,5,1\n200,1\n"     << QStringLiteral("line 3 is no result");
        QTest::newRow("too many cells")  << header + "100,1,5,1,7\n"          << QStringLiteral("line 2 is no result");
        QTest::newRow("no frequency")    << header + ",1,5,1\n"               << QStringLiteral("line 2 is no result");
        QTest::newRow("endless")         << header + "inf,1,5,1\n"            << QStringLiteral("line 2 is no result");
        QTest::newRow("not above 0")     << header + "0,1,5,1\n"              << QStringLiteral("line 2 is no result");
        QTest::newRow("no number")       << header + "nan,1,5,1\n"            << QStringLiteral("line 2 is no result");
        QTest::newRow("beyond all")      << header + "1e13,1,5,1\n"           << QStringLiteral("line 2 is no result");
        QTest::newRow("cut line")        << header + "100,1,5,1\n200,7"       << QStringLiteral("line 3 is no result: \"200,7\"");
        QTest::newRow("two tables")      << header + "1,1,5,1\n" + header     << QStringLiteral("line 3 is no result");
        QTest::newRow("binary")          << QByteArray("\0\x01\xff", 3)       << QStringLiteral("no table of results");
        // clang-format on
    }

    void whatIsNoTableIsRefused()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const Result result = Result::parse(bytes);
        QVERIFY2(result.error.contains(reason), qPrintable(result.error));
        QVERIFY(result.points.isEmpty());
    }

    void filesThatCannotBeReadSayWhy()
    {
        const QTemporaryDir folder;
        const Result missing = Result::read(folder.filePath(QStringLiteral("none.csv")));
        QVERIFY(!missing.error.isEmpty());
        QCOMPARE(missing.path, folder.filePath(QStringLiteral("none.csv")));
        QVERIFY(Result::read(folder.path()).error.contains(QStringLiteral("folder")));
    }

    void valuesLieOnTheLineBetweenTwoPoints_data()
    {
        QTest::addColumn<double>("frequency");
        QTest::addColumn<bool>("isKnown");
        QTest::addColumn<double>("value");
        // clang-format off
        QTest::newRow("below")               <<  99.0 << false <<   0.0;
        QTest::newRow("first")               << 100.0 << true  <<  10.0;
        QTest::newRow("between")             << 150.0 << true  <<  15.0;
        QTest::newRow("at a point")          << 200.0 << true  <<  20.0;
        QTest::newRow("beside an unknown")   << 250.0 << false <<   0.0;
        QTest::newRow("at an unknown")       << 300.0 << false <<   0.0;
        QTest::newRow("last")                << 400.0 << true  <<  40.0;
        QTest::newRow("above")               << 401.0 << false <<   0.0;
        // clang-format on
    }

    void valuesLieOnTheLineBetweenTwoPoints()
    {
        QFETCH(double, frequency);
        QFETCH(bool, isKnown);
        QFETCH(double, value);
        const Result result =
            Result::parse(header + "100,10,0,1\n200,20,0,1\n300,,0,1\n400,40,0,1\n");
        const std::optional<double> found = result.valueAt(frequency, Quantity::Resistance);
        QCOMPARE(found.has_value(), isKnown);
        QCOMPARE(found.value_or(0), value);
    }

    void exportedTableHoldsAllResults()
    {
        Result first = Result::parse(header + "100,10,-5.5,inf\n");
        first.path = QStringLiteral("/models/a \"b\", c.csv");
        Result second = Result::parse(header + "200,,,\n");
        second.path = QStringLiteral("/models/second.csv");
        QCOMPARE(Export::table({first, second}),
                 QByteArray("result,frequency_MHz,resistance_ohm,reactance_ohm,swr\n"
                            "\"a \"\"b\"\", c\",100,10,-5.5,inf\n"
                            "\"second\",200,,,\n"));
    }

    void exportedNumbersAreTheSameToTheLastBit()
    {
        const Result result = Result::parse(header + "0.1,123456.789012345,1e-300,1.00000000001\n");
        const QByteArray line = Export::table({result}).split('\n').at(1);
        const QList<QByteArray> cells = line.split(',');
        QCOMPARE(cells.at(1).toDouble(), 0.1);
        QCOMPARE(cells.at(2).toDouble(), 123456.789012345);
        QVERIFY(cells.at(3).toDouble() == 1e-300);
        QVERIFY(cells.at(4).toDouble() == 1.00000000001);
    }

    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }

    void timeGrowsWithTheSize()
    {
        QFETCH(QByteArray, piece);
        const auto read = [](const QByteArray& bytes) {
            Result::parse(bytes);
            Result::parse(header + bytes);
        };
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }
};

QTEST_GUILESS_MAIN(tst_result)
#include "tst_result.moc"
