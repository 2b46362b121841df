// SPDX-License-Identifier: MIT
#include <RunTexts.h>

#include <QtTest>

class tst_run_texts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clockTimes_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("withHours");
        QTest::addColumn<QString>("asShortAsPossible");
        // clang-format off
        QTest::newRow("nothing")                << Q_INT64_C(0)         << "0:00:00"   << "0:00";
        QTest::newRow("less than a second")     << Q_INT64_C(999)       << "0:00:00"   << "0:00";
        QTest::newRow("a second")               << Q_INT64_C(1000)      << "0:00:01"   << "0:01";
        QTest::newRow("last of a minute")       << Q_INT64_C(59999)     << "0:00:59"   << "0:59";
        QTest::newRow("a minute")               << Q_INT64_C(60000)     << "0:01:00"   << "1:00";
        QTest::newRow("last of an hour")        << Q_INT64_C(3599999)   << "0:59:59"   << "59:59";
        QTest::newRow("an hour")                << Q_INT64_C(3600000)   << "1:00:00"   << "1:00:00";
        QTest::newRow("hours, minutes, seconds") << Q_INT64_C(3723000)  << "1:02:03"   << "1:02:03";
        QTest::newRow("days")                   << Q_INT64_C(360000000) << "100:00:00" << "100:00:00";
        // clang-format on
    }

    void clockTimes()
    {
        QFETCH(qint64, milliseconds);
        QTEST(RunTexts::clockTime(milliseconds), "withHours");
        QTEST(RunTexts::shortClockTime(milliseconds), "asShortAsPossible");
    }

    void durationHasTenthsBelowAMinute()
    {
        QCOMPARE(RunTexts::duration(0), QStringLiteral("0.0 s"));
        QCOMPARE(RunTexts::duration(1240), QStringLiteral("1.2 s"));
        QCOMPARE(RunTexts::duration(60000), QStringLiteral("0:01:00"));
    }
};

QTEST_GUILESS_MAIN(tst_run_texts)

#include "tst_run_texts.moc"
