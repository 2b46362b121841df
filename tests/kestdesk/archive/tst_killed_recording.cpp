// SPDX-License-Identifier: MIT
#include "../support/Desk.h"

#include <MessageReader.h>
#include <RecordFolder.h>
#include <RecordedMessage.h>
#include <RunArchive.h>

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <csignal>

namespace {

// The component was not killed with kestdesk: this one waits for ever.
void endProcesses(const Desk& desk)
{
    Processes::send(SIGKILL, desk.processes());
    QTRY_COMPARE_WITH_TIMEOUT(desk.processes(), QStringList(), 30000);
}

} // namespace

// kestdesk is killed while it records.
class tst_killed_recording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedAtAnyMomentTheArchiveIsWhole()
    {
        const int attempts = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 100 : 25;
        constexpr int longest = 400; // ms: starts, a run, and its end
        Desk desk;
        QVERIFY(QFile::link(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        const RunArchive archive(desk.path("user/runs"));
        for (const char* const name : {"models/a.nec", "models/b.nec", "models/c.nec"}) {
            writeFile(desk.path(name), "files");
        }
        int interrupted = 0;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            QProcess process;
            desk.start(process, {text("--non-interactive"), text("--jobs"), text("2"),
                                 text("a.nec"), text("b.nec"), text("a.nec"), text("c.nec")});
            QTest::qSleep(QRandomGenerator::global()->bounded(1, longest));
            process.kill();
            QVERIFY(process.waitForFinished(30000));
            const QVector<RunRecord> records = archive.records();
            for (const RunRecord& record : records) {
                QVERIFY(record.state != RunRecord::State::Running);
                QCOMPARE(contentOf(record.modelCopyPath()), QByteArray("files"));
                interrupted += record.state == RunRecord::State::Interrupted ? 1 : 0;
            }
            archive.closeInterrupted();
            archive.prune({1, 1000});
            const QStringList left = QDir(archive.folder())
                                         .entryList({text(".*")}, QDir::AllEntries | QDir::Hidden |
                                                                      QDir::NoDotAndDotDot);
            QCOMPARE(left, QStringList());
        }
        const auto first = archive.record(1);
        QVERIFY(first);
        qInfo("%d records, %d interruptions seen", static_cast<int>(archive.records().size()),
              interrupted);
    }

    // What was printed more than a second before the kill is there.
    void nothingIsLostButTheLastSecond()
    {
        Desk desk;
        QVERIFY(QFile::link(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        writeFile(desk.path("models/m.nec"), "halfway");
        QProcess process;
        desk.start(process, {text("--non-interactive"), text("m.nec")});
        const RunArchive archive(desk.path("user/runs"));
        QTRY_VERIFY_WITH_TIMEOUT(archive.record(1), 30000);
        QByteArray printed;
        QTRY_VERIFY_WITH_TIMEOUT((printed += process.readAllStandardOutput()).contains("up"),
                                 30000);
        QTest::qSleep(1000);
        process.kill();
        QVERIFY(process.waitForFinished(30000));
        QStringList texts;
        MessageReader(RecordFolder(archive.record(1)->folder).messagesFile())
            .readAll([&texts](const RecordedMessage& message) { texts.append(message.text); });
        QVERIFY(texts.contains(text("up")));
        QVERIFY(texts.contains(text("50")));
        archive.closeInterrupted();
        QCOMPARE(archive.record(1)->state, RunRecord::State::Interrupted);
        QCOMPARE(archive.record(1)->totalPercentage, 50);
        endProcesses(desk);
    }

    void laterBatchRunWritesTheEndOfAnInterruptedRecord_data()
    {
        QTest::addColumn<QStringList>("jobs");
        QTest::newRow("one at a time") << QStringList();
        QTest::newRow("two at once") << QStringList({text("--jobs"), text("2")});
    }

    void laterBatchRunWritesTheEndOfAnInterruptedRecord()
    {
        QFETCH(QStringList, jobs);
        Desk desk;
        QVERIFY(QFile::link(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        writeFile(desk.path("models/m.nec"), "halfway");
        writeFile(desk.path("models/n.nec"), "valid");
        QProcess process;
        desk.start(process, {text("--non-interactive"), text("m.nec")});
        const QString messages = desk.path("user/runs/1/messages.jsonl");
        QTRY_VERIFY_WITH_TIMEOUT(contentOf(messages).contains("up"), 30000);
        process.kill();
        QVERIFY(process.waitForFinished(30000));
        endProcesses(desk);
        const QString end = desk.path("user/runs/1/end.json");
        QVERIFY(!QFile::exists(end));
        const Desk::Result result =
            desk.run(QStringList{text("--non-interactive")} + jobs + QStringList{text("n.nec")});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(contentOf(end).contains("\"state\": \"interrupted\""));
        const auto record = RunArchive(desk.path("user/runs")).record(1);
        QCOMPARE(record->outcome, text("interrupted"));
        QCOMPARE(record->totalPercentage, 50);
    }
};

QTEST_GUILESS_MAIN(tst_killed_recording)

#include "tst_killed_recording.moc"
