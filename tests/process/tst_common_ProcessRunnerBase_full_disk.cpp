// SPDX-License-Identifier: MIT
#include "LineRunner.h"

#include <FileSizeLimit.h>
#include <RecordingObserver.h>

#include <common_ProcessRunnerBase.h>

#include <QTemporaryDir>
#include <QtTest>

class tst_common_ProcessRunnerBase_full_disk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qunsetenv(logVariable); }

    void logOnAFullDiskDoesNotDisturbTheRun()
    {
        QTemporaryDir folder;
        QVERIFY(QFile::link(text("/dev/full"), folder.filePath(text("lines.log"))));
        qputenv(logVariable, folder.path().toLocal8Bit());
        LineRunner runner;
        setUp(runner, words("lines 20000 55"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 20000);
    }

    void logOnADiskThatFillsUpDoesNotDisturbTheRun()
    {
        constexpr int room = 100000; // bytes, of a million
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            LineRunner runner;
            const RecordingObserver observer(&runner);
            setUp(runner, words("lines 20000 55"));
            const FileSizeLimit limit(room);
            QVERIFY(runWithEventLoop(runner));
            QCOMPARE(runner.output.size(), 20000);
            QCOMPARE(observer.lifeCycle(),
                     QStringList({text("started"), text("exit code 0"), text("done")}));
        }
        QCOMPARE(QFileInfo(folder.filePath(text("lines.log"))).size(), qint64(room));
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase_full_disk)
#include "tst_common_ProcessRunnerBase_full_disk.moc"
