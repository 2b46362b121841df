#include <RunTimes.h>

#include <QtTest>

class tst_run_times : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textHasHoursOnlyWhenThereAreSome_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("nothing")                << Q_INT64_C(0)         << QStringLiteral("0:00");
        QTest::newRow("less than a second")     << Q_INT64_C(999)       << QStringLiteral("0:00");
        QTest::newRow("a second")               << Q_INT64_C(1000)      << QStringLiteral("0:01");
        QTest::newRow("last of a minute")       << Q_INT64_C(59999)     << QStringLiteral("0:59");
        QTest::newRow("a minute")               << Q_INT64_C(60000)     << QStringLiteral("1:00");
        QTest::newRow("last of an hour")        << Q_INT64_C(3599999)   << QStringLiteral("59:59");
        QTest::newRow("an hour")                << Q_INT64_C(3600000)   << QStringLiteral("1:00:00");
        QTest::newRow("hours, minutes, seconds") << Q_INT64_C(3723000)  << QStringLiteral("1:02:03");
        QTest::newRow("days")                   << Q_INT64_C(360000000) << QStringLiteral("100:00:00");
        // clang-format on
    }

    void textHasHoursOnlyWhenThereAreSome()
    {
        QFETCH(qint64, milliseconds);
        QTEST(RunTimes::text(milliseconds), "text");
    }

    void remainingIsWhatThisPaceLeaves_data()
    {
        QTest::addColumn<qint64>("elapsed");
        QTest::addColumn<int>("percentage");
        QTest::addColumn<qint64>("remaining"); // -1: not known
        // clang-format off
        QTest::newRow("not moved")     << Q_INT64_C(5000)       << 0   << Q_INT64_C(-1);
        QTest::newRow("below nothing") << Q_INT64_C(5000)       << -1  << Q_INT64_C(-1);
        QTest::newRow("above all")     << Q_INT64_C(5000)       << 101 << Q_INT64_C(-1);
        QTest::newRow("first percent") << Q_INT64_C(1000)       << 1   << Q_INT64_C(99000);
        QTest::newRow("a quarter")     << Q_INT64_C(1000)       << 25  << Q_INT64_C(3000);
        QTest::newRow("half")          << Q_INT64_C(1000)       << 50  << Q_INT64_C(1000);
        QTest::newRow("all")           << Q_INT64_C(1000)       << 100 << Q_INT64_C(0);
        QTest::newRow("months")        << Q_INT64_C(9000000000) << 1   << Q_INT64_C(891000000000);
        // clang-format on
    }

    void remainingIsWhatThisPaceLeaves()
    {
        QFETCH(qint64, elapsed);
        QFETCH(int, percentage);
        QTEST(RunTimes::remaining(elapsed, percentage).value_or(-1), "remaining");
    }
};

QTEST_GUILESS_MAIN(tst_run_times)

#include "tst_run_times.moc"
