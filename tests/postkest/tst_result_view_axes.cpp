// SPDX-License-Identifier: MIT
#include "ResultViewStage.h"

#include <QValueAxis>
#include <QtTest>

// The axes of the charts fit the results of all curves.
class tst_result_view_axes : public QObject, protected ResultViewStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_view.reset(); }

    void allChartsHaveTheFrequenciesOfAllResults()
    {
        m_view->setResults(twoResults());
        for (const QuantityChart* chart : qAsConst(m_charts)) {
            const auto* axis =
                qobject_cast<QValueAxis*>(chart->chart()->axes(Qt::Horizontal).first());
            QCOMPARE(axis->min(), 100.0);
            QCOMPARE(axis->max(), 300.0);
        }
    }

    void standingWaveRatiosAboveTenAreOutOfTheChart()
    {
        m_view->setResults(twoResults());
        const auto* axis =
            qobject_cast<QValueAxis*>(m_charts.at(2)->chart()->axes(Qt::Vertical).first());
        QVERIFY2(axis->min() >= 0 && axis->min() <= 1, qPrintable(QString::number(axis->min())));
        QVERIFY2(axis->max() >= 10 && axis->max() < 15, qPrintable(QString::number(axis->max())));
    }

    void axesHaveRoundNumbersInTheRange_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<double>("step");
        QTest::newRow("100 MHz") << QByteArray("250,1,1,1\n350,1,1,1\n") << 20.0;
        QTest::newRow("12 MHz") << QByteArray("138,1,1,1\n150,1,1,1\n") << 2.0;
        QTest::newRow("30 kHz") << QByteArray("7,1,1,1\n7.03,1,1,1\n") << 0.005;
        QTest::newRow("1 GHz") << QByteArray("400,1,1,1\n1400,1,1,1\n") << 200.0;
        QTest::newRow("one frequency") << QByteArray("300,1,1,1\n") << 1.0;
        QTest::newRow("hardly two") << QByteArray("300,1,1,1\n300.00000000000006,1,1,1\n") << 1.0;
    }

    void axesHaveRoundNumbersInTheRange()
    {
        QFETCH(QByteArray, lines);
        QFETCH(double, step);
        m_view->setResults({makeResult(QStringLiteral("wide"), "1,1,1,1\n1e12,2,2,2\n")});
        m_view->setResults({makeResult(QStringLiteral("one"), lines)});
        const auto* axis = axisOf(0, Qt::Horizontal);
        QCOMPARE(axis->tickInterval(), step);
        QCOMPARE(axis->tickAnchor(), 0.0);
        QVERIFY(axis->max() > axis->min());
    }

    void ratiosHaveAnAxisThatFits_data()
    {
        QTest::addColumn<QByteArray>("ratio");
        QTest::addColumn<double>("highest");
        QTest::newRow("good") << QByteArray("1.4") << 2.0;
        QTest::newRow("just two") << QByteArray("2") << 2.0;
        QTest::newRow("fair") << QByteArray("2.01") << 3.0;
        QTest::newRow("poor") << QByteArray("5") << 6.0;
        QTest::newRow("bad") << QByteArray("9") << 10.0;
        QTest::newRow("endless") << QByteArray("1e300") << 10.0;
        QTest::newRow("unknown") << QByteArray("inf") << 2.0;
    }

    void ratiosHaveAnAxisThatFits()
    {
        QFETCH(QByteArray, ratio);
        QFETCH(double, highest);
        m_view->setResults(
            {makeResult(QStringLiteral("one"), "100,1,1,1.1\n200,1,1," + ratio + '\n')});
        const auto* axis = axisOf(2, Qt::Vertical);
        QCOMPARE(axis->min(), 1.0);
        QCOMPARE(axis->max(), ratio == "inf" ? 2.0 : highest);
        QCOMPARE(axis->tickAnchor(), 1.0);
    }

    void largestNumbersThereAreLeaveTheChartButNotTheProgram()
    {
        m_view->setResults(
            {makeResult(QStringLiteral("huge"), "100,1e308,-1e308,1\n200,-1e308,1e308,1\n")});
        const auto* axis = axisOf(0, Qt::Vertical);
        QVERIFY(axis->max() >= 1e15 && axis->max() < 1e17);
        QVERIFY(axis->min() <= -1e15);
        QVERIFY(m_view->readout(100).size() < 500);
        QVERIFY(m_view->readout(100).contains(QStringLiteral("1e+308")));
    }
};

QTEST_MAIN(tst_result_view_axes)
#include "tst_result_view_axes.moc"
