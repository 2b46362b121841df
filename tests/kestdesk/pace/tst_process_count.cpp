// SPDX-License-Identifier: MIT
#include <MachinesFile.h>
#include <ProcessCount.h>

#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

class tst_process_count : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsSayHowMany_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("count");
        const int cores = QThread::idealThreadCount();
        // clang-format off
        QTest::newRow("sequential")          << QStringLiteral("m.nec")                              << 1;
        QTest::newRow("number")              << QStringLiteral("m.nec -np 3")                        << 3;
        QTest::newRow("old word")            << QStringLiteral("m.nec -NP 4")                        << 4;
        QTest::newRow("last one counts")     << QStringLiteral("m.nec -np 3 -np 5")                  << 5;
        QTest::newRow("all of the file")     << QStringLiteral("m.nec -np all")                      << 7;
        QTest::newRow("all of this machine") << QStringLiteral("m.nec -np all --parallel-authenticate localonly") << cores;
        QTest::newRow("of another component") << QStringLiteral("m.nec --runkest-options -np 3")     << 1;
        QTest::newRow("no number")           << QStringLiteral("m.nec -np many")                     << 1;
        QTest::newRow("nothing behind it")   << QStringLiteral("m.nec -np")                          << 1;
        QTest::newRow("negative")            << QStringLiteral("m.nec -np -2")                       << 1;
        // clang-format on
    }

    void argumentsSayHowMany()
    {
        QFETCH(QString, arguments);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("machines")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("a:3\nb:4\n");
        file.close();
        QTEST(ProcessCount::of(arguments.split(QLatin1Char(' ')),
                               suite::MachinesFile::read(file.fileName())),
              "count");
    }

    void machinesFileThatCannotBeReadCountsOne()
    {
        QCOMPARE(ProcessCount::of({QStringLiteral("-np"), QStringLiteral("all")},
                                  suite::MachinesFile::read(QString())),
                 1);
    }
};

QTEST_GUILESS_MAIN(tst_process_count)

#include "tst_process_count.moc"
