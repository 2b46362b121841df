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
};

QTEST_GUILESS_MAIN(tst_run_times)

#include "tst_run_times.moc"
