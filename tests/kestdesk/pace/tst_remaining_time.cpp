// SPDX-License-Identifier: MIT
#include <RemainingTime.h>

#include <QtTest>

#include <cmath>

class tst_remaining_time : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreRounded_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("nothing")           << 0.      << QStringLiteral("5 s");
        QTest::newRow("seconds")           << 43.     << QStringLiteral("45 s");
        QTest::newRow("nearly a minute")   << 58.     << QStringLiteral("1:00");
        QTest::newRow("minutes")           << 221.    << QStringLiteral("3:40");
        QTest::newRow("nearly ten")        << 599.    << QStringLiteral("10 min");
        QTest::newRow("many minutes")      << 1475.   << QStringLiteral("25 min");
        QTest::newRow("nearly an hour")    << 3590.   << QStringLiteral("1 h");
        QTest::newRow("an hour and a bit") << 4400.   << QStringLiteral("1 h 15 min");
        QTest::newRow("hours")             << 7500.   << QStringLiteral("2 h");
        QTest::newRow("hours and a half")  << 9500.   << QStringLiteral("2 h 30 min");
        QTest::newRow("many hours")        << 50000.  << QStringLiteral("14 h");
        QTest::newRow("days")              << 300000. << QStringLiteral("3.5 days");
        // clang-format on
    }

    void timesAreRounded()
    {
        QFETCH(double, seconds);
        QTEST(RemainingTime::rounded(static_cast<qint64>(1000 * seconds)), "text");
    }

    void textsSayThatItIsAnEstimate()
    {
        RemainingTime time;
        QCOMPARE(time.text(), QString());
        QCOMPARE(time.shortText(), QString());
        QVERIFY(!time.milliseconds());
        time.update(10000, 220000.);
        QCOMPARE(time.text(), QStringLiteral("about 3:40 left"));
        QCOMPARE(time.shortText(), QStringLiteral("about 3:40"));
        QCOMPARE(time.milliseconds().value_or(0), qint64(220000));
    }

    void shortRunsAndMissingEstimatesShowNothing()
    {
        RemainingTime time;
        time.update(1500, 220000.);
        QCOMPARE(time.text(), QString());
        time.update(3000, 220000.);
        QVERIFY(!time.text().isEmpty());
        time.update(4000, std::nullopt);
        QCOMPARE(time.text(), QString());
    }

    void timeIsCountedDownEvenly()
    {
        RemainingTime time;
        QStringList texts;
        for (int second = 10; second <= 40; ++second) {
            time.update(qint64(second) * 1000, 130000. - second * 1000);
            if (texts.isEmpty() || texts.last() != time.shortText()) {
                texts.append(time.shortText());
            }
        }
        QCOMPARE(texts.size(), 7);
        QCOMPARE(texts.first(), QStringLiteral("about 2:00"));
        QCOMPARE(texts.last(), QStringLiteral("about 1:30"));
    }

    // An estimate that goes up and down by a tenth.
    void noiseNeverMakesTheTextGoUp()
    {
        RemainingTime time;
        qint64 last = 1000000;
        for (int second = 10; second < 300; ++second) {
            const double truth = 600000. - second * 1000;
            time.update(qint64(second) * 1000, truth * (1 + 0.1 * std::sin(second)));
            QVERIFY(time.milliseconds());
            QVERIFY2(*time.milliseconds() <= last, qPrintable(QString::number(second)));
            last = *time.milliseconds();
            QVERIFY(std::abs(static_cast<double>(last) - truth) < 0.1 * truth);
        }
    }

    void timeThatHasReallyGrownIsShownSoon()
    {
        RemainingTime time;
        time.update(10000, 120000.);
        for (int second = 11; second < 120; ++second) {
            time.update(qint64(second) * 1000, 300000.);
        }
        QVERIFY(time.milliseconds().value_or(0) > 250000);
    }
};

QTEST_GUILESS_MAIN(tst_remaining_time)

#include "tst_remaining_time.moc"
