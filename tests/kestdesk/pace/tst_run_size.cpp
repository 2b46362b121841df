// SPDX-License-Identifier: MIT
#include <RunRecord.h>
#include <RunSize.h>

#include <QtTest>

namespace {

RunSize usualSize()
{
    RunSize size;
    size.component = QStringLiteral("runkest");
    size.model = QStringLiteral("/m.nec");
    size.place = QStringLiteral("here");
    size.segments = 100;
    size.frequencies = 20;
    return size;
}

} // namespace

class tst_run_size : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repetitionIsAlikeAndSure()
    {
        const RunSize size = usualSize();
        QVERIFY(size.isSimilarTo(usualSize()));
        QCOMPARE(size.ratio(usualSize()), 1.);
        QVERIFY(size.spread(usualSize()) <= 0.25);
    }

    void differencesMakeTheTimeUnsure_data()
    {
        QTest::addColumn<int>("segments");
        QTest::addColumn<int>("frequencies");
        QTest::addColumn<int>("processes");
        QTest::addColumn<QString>("place");
        QTest::addColumn<bool>("isSimilar");
        QTest::addColumn<double>("ratio");
        // clang-format off
        QTest::newRow("more segments")  << 200 << 20 << 1 << "here"  << false << 0.25;
        QTest::newRow("frequencies")    << 100 << 40 << 1 << "here"  << false << 0.5;
        QTest::newRow("processes")      << 100 << 20 << 4 << "here"  << true  << 4.;
        QTest::newRow("another machine") << 100 << 20 << 1 << "there" << true  << 1.;
        // clang-format on
    }

    void differencesMakeTheTimeUnsure()
    {
        QFETCH(int, segments);
        QFETCH(int, frequencies);
        QFETCH(int, processes);
        QFETCH(QString, place);
        RunSize earlier = usualSize();
        earlier.segments = segments;
        earlier.frequencies = frequencies;
        earlier.processes = processes;
        earlier.place = place;
        const RunSize size = usualSize();
        QTEST(size.isSimilarTo(earlier), "isSimilar");
        QTEST(size.ratio(earlier), "ratio");
        QVERIFY(!size.isSimilarTo(earlier) || size.spread(earlier) > 0.25);
    }

    void otherComponentsAreNotAlike()
    {
        RunSize earlier = usualSize();
        earlier.component = QStringLiteral("prekest");
        QVERIFY(!usualSize().isSimilarTo(earlier));
    }

    // Of models that cannot be read nothing is known but their name.
    void modelWithoutASizeIsAlikeItself()
    {
        RunSize size = usualSize();
        size.segments = 0;
        size.frequencies = 0;
        RunSize earlier = size;
        QVERIFY(size.isSimilarTo(earlier));
        earlier.model = QStringLiteral("/other.nec");
        QVERIFY(!size.isSimilarTo(earlier));
    }

    void endIsOpenWhereResultsDecide()
    {
        RunSize size = usualSize();
        QVERIFY(!size.isOpenEnded());
        size.isAdaptive = true;
        QVERIFY(size.isOpenEnded());
        for (const char* const name : {"optkest", "amrkest"}) {
            RunSize other = usualSize();
            other.component = QLatin1String(name);
            QVERIFY(other.isOpenEnded());
        }
    }

    void sizeIsReadFromTheModel()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("m.nec")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("CM @adapt\nCE\nGW 1 21 0 0 -0.25 0 0 0.25 0.001\nGE 0\n"
                   "FR 0 51 0 0 250 2\nEX 0 1 11 0 1 0\nXQ\nEN\n");
        file.close();
        RunSize size;
        size.model = file.fileName();
        size.readModel();
        QCOMPARE(size.segments, 21);
        QCOMPARE(size.frequencies, 51);
        QVERIFY(size.isAdaptive);
    }

    void recordSaysWhereTheRunWas()
    {
        RunRecord record;
        record.host = QStringLiteral("a");
        const QString here = RunSize::of(record).place;
        record.host = QStringLiteral("b");
        QVERIFY(RunSize::of(record).place != here);
        record.arguments = QStringList{QStringLiteral("--remote-host"), QStringLiteral("far")};
        const QString far = RunSize::of(record).place;
        record.host = QStringLiteral("a");
        QCOMPARE(RunSize::of(record).place, far);
        QVERIFY(!RunSize::of(record).isContinued);
        record.arguments.append(QStringLiteral("--restart"));
        QVERIFY(RunSize::of(record).isContinued);
    }
};

QTEST_GUILESS_MAIN(tst_run_size)

#include "tst_run_size.moc"
