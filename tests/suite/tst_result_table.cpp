// SPDX-License-Identifier: MIT
#include "ResultTable.h"
#include "TableLine.h"

#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using suite::Impedance;
using suite::Quantity;
using suite::ResultPoint;
using suite::ResultTable;

Q_DECLARE_METATYPE(suite::ResultPoint)

namespace {

const QByteArray header = QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

// A table over frequency is written as it is read.
class tst_result_table : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString write(const QByteArray& content) const
    {
        QFile file(m_folder.filePath(text("table.csv")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no file");
        }
        return file.fileName();
    }

private Q_SLOTS:
    void pointsAreWrittenWithTheirDigits_data()
    {
        QTest::addColumn<ResultPoint>("point");
        QTest::addColumn<QByteArray>("line");
        const auto add = [](const char* name, const ResultPoint& point, const char* line) {
            QTest::newRow(name) << point << QByteArray(line);
        };
        const double tiny = 1e-300;
        add("matched", {300, Impedance{50, 0}}, "300,50,0,1\n");
        add("digits", {299.7924580123, Impedance{73.1296789, -42.54712345}},
            "299.792458,73.1297,-42.5471,2.18339\n");
        add("ten digits", {1234.5678912, Impedance{25, 0}}, "1234.567891,25,0,2\n");
        add("no power", {100, Impedance{0, 5}}, "100,0,5,inf\n");
        add("no source", {100, std::nullopt}, "100,,,\n");
        add("small", {0.000001, Impedance{tiny, 0}}, "1e-06,1e-300,0,inf\n");
    }

    void pointsAreWrittenWithTheirDigits()
    {
        QFETCH(ResultPoint, point);
        QFETCH(QByteArray, line);
        ResultTable table;
        table.points = {point};
        QCOMPARE(table.bytes(), header + line);
    }

    void whatIsWrittenIsRead()
    {
        ResultTable table;
        table.points = {{300, Impedance{72.5, -1.25}}, {100, std::nullopt}};
        const ResultTable again = ResultTable::read(write(table.bytes()));
        QCOMPARE(again.error, QString());
        QCOMPARE(again.points.size(), 2);
        QCOMPARE(again.points.at(0).frequency, 300.0); // in the order of the file
        QVERIFY(again.points.at(0).impedance());
        QCOMPARE(again.points.at(0).impedance()->resistance, 72.5);
        QCOMPARE(again.points.at(0).impedance()->reactance, -1.25);
        QCOMPARE(again.points.at(0).value(Quantity::StandingWaveRatio), 1.45082);
        QCOMPARE(again.points.at(1).frequency, 100.0);
        QVERIFY(!again.points.at(1).impedance());
        QVERIFY(std::isnan(again.points.at(1).value(Quantity::StandingWaveRatio)));
        QCOMPARE(again.bytes(), table.bytes());
    }

    void impedanceNeedsBothParts_data()
    {
        QTest::addColumn<QByteArray>("cells");
        QTest::newRow("no resistance") << QByteArray(",1,");
        QTest::newRow("no reactance") << QByteArray("1,,");
        QTest::newRow("infinite") << QByteArray("inf,1,");
        QTest::newRow("not a number") << QByteArray("1,nan,");
    }

    void impedanceNeedsBothParts()
    {
        QFETCH(QByteArray, cells);
        const ResultTable table = ResultTable::parse(header + "300," + cells + '\n');
        QCOMPARE(table.error, QString());
        QVERIFY(!table.points.first().impedance());
    }

    // Components go on from each other's tables, so damage must not pass for a result.
    void damagedTablesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("error");
        // clang-format off
        QTest::newRow("empty")          << QByteArray()                  << text("it is no table of results, its first line should be \"frequency_MHz,resistance_ohm,reactance_ohm,swr\"");
        QTest::newRow("header only")    << header                        << text("it holds no results");
        QTest::newRow("other table")    << QByteArray("run,value\n1,2\n") << text("it is no table of results, its first line should be \"frequency_MHz,resistance_ohm,reactance_ohm,swr\"");
        QTest::newRow("no header")      << QByteArray("300,1,2,3\n")     << text("it is no table of results, its first line should be \"frequency_MHz,resistance_ohm,reactance_ohm,swr\"");
        QTest::newRow("cut line")       << header + "300,72.1,4"         << text("line 2 is no result: \"300,72.1,4\"");
        QTest::newRow("later line")     << header + "300,1,2,3\nx,1,2,3" << text("line 3 is no result: \"x,1,2,3\"");
        QTest::newRow("control codes")  << header + "300,\x1b[2J,1,1"    << text("line 2 is no result: \"300,\ufffd[2J,1,1\"");
        // clang-format on
    }

    void damagedTablesAreRefused()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        const ResultTable table = ResultTable::read(write(content));
        QCOMPARE(table.error, error);
        QVERIFY(table.points.isEmpty());
    }

    void filesThatCannotBeReadSayWhy()
    {
        QCOMPARE(ResultTable::read(m_folder.path()).error, text("it is a folder"));
        QFile huge(m_folder.filePath(text("huge.csv")));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(3) << 30));
        QCOMPARE(ResultTable::read(huge.fileName()).error, text("it is larger than 64 MB"));
    }

    void tablesAreKnownByTheirFirstLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isTable");
        QTest::newRow("table") << header + "300,1,2,3\n" << true;
        QTest::newRow("header only") << header.trimmed() << true;
        QTest::newRow("Windows") << header.trimmed() + "\r\n300,1,2,3\r\n" << true;
        QTest::newRow("byte order mark") << "\xef\xbb\xbf" + header << true;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("other columns") << QByteArray("frequency_MHz,gain\n300,1\n") << false;
        QTest::newRow("exported") << QByteArray("result,") + header << false;
    }

    void tablesAreKnownByTheirFirstLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, isTable);
        QCOMPARE(ResultTable::isTable(write(content)), isTable);
    }

    void numbersOfTables()
    {
        QCOMPARE(suite::tableNumber(1.23456789), QByteArray("1.23457"));
        QCOMPARE(suite::tableNumber(0.1, QLocale::FloatingPointShortest), QByteArray("0.1"));
        QCOMPARE(suite::tableNumber(std::nan("")), QByteArray());
        QCOMPARE(suite::tableLine({"a", "", "b"}), QByteArray("a,,b\n"));
    }
};

QTEST_GUILESS_MAIN(tst_result_table)
#include "tst_result_table.moc"
