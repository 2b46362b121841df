// SPDX-License-Identifier: MIT
#include <TaskCounts.h>

#include <QtTest>

using suite::TaskCounts;

namespace {

QString shown(const QVector<int>& counts)
{
    QStringList result;
    for (const int count : counts) {
        result.append(QString::number(count));
    }
    return result.join(QLatin1Char(' '));
}

} // namespace

// The numbers of processes as Slurm writes them.
class tst_task_counts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsAreInFull_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("counts");
        QTest::newRow("one") << "4"
                             << "4";
        QTest::newRow("several") << "4,2,1"
                                 << "4 2 1";
        QTest::newRow("repeated") << "2(x3),1"
                                  << "2 2 2 1";
        QTest::newRow("repeated last") << "1,16(x2)"
                                       << "1 16 16";
        QTest::newRow("repeated once") << "8(x1)"
                                       << "8";
        QTest::newRow("the largest") << "4096"
                                     << "4096";
    }

    void countsAreInFull()
    {
        QFETCH(QString, text);
        const TaskCounts result = TaskCounts::parse(text);
        QCOMPARE(result.error, QString());
        QTEST(shown(result.counts), "counts");
    }

    void wrongTextHasItsReason_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("part"); // that is wrong
        // clang-format off
        QTest::newRow("nothing")           << ""               << "";
        QTest::newRow("word")              << "many"           << "many";
        QTest::newRow("comma last")        << "2,"             << "";
        QTest::newRow("zero")              << "0"              << "0";
        QTest::newRow("negative")          << "-1"             << "-1";
        QTest::newRow("fraction")          << "1.5"            << "1.5";
        QTest::newRow("blank")             << "2, 1"           << " 1";
        QTest::newRow("line break")        << "2\n"            << "2\n";
        QTest::newRow("no times")          << "2(3)"           << "2(3)";
        QTest::newRow("zero times")        << "2(x0)"          << "2(x0)";
        QTest::newRow("not closed")        << "1,2(x3"         << "2(x3";
        QTest::newRow("not opened")        << "2x3)"           << "2x3)";
        QTest::newRow("text behind")       << "2(x3)x"         << "2(x3)x";
        QTest::newRow("no count")          << "(x3)"           << "(x3)";
        QTest::newRow("beyond an integer") << "99999999999"    << "99999999999";
        QTest::newRow("times beyond")      << "1(x99999999999)" << "1(x99999999999)";
        QTest::newRow("long")              << QString(1000, QLatin1Char('y')) << QString(40, QLatin1Char('y'));
        // clang-format on
    }

    void wrongTextHasItsReason()
    {
        QFETCH(QString, text);
        QFETCH(QString, part);
        const TaskCounts result = TaskCounts::parse(text);
        QCOMPARE(result.error,
                 QStringLiteral("\"%1\" is no number of processes such as \"4\" or \"4(x2)\"")
                     .arg(part));
        QVERIFY(result.counts.isEmpty());
    }

    void largeNumbersAreLimited_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("error");
        QTest::newRow("processes") << "1,4097"
                                   << "more than 4096 processes are on one host";
        QTest::newRow("hosts") << "1(x4097)"
                               << "there are more than 4096 hosts";
        QTest::newRow("hosts together") << "1(x4000),2(x97)"
                                        << "there are more than 4096 hosts";
    }

    void largeNumbersAreLimited()
    {
        QFETCH(QString, text);
        const TaskCounts result = TaskCounts::parse(text);
        QTEST(result.error, "error");
        QVERIFY(result.counts.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_task_counts)
#include "tst_task_counts.moc"
