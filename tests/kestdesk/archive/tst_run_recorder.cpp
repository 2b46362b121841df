// SPDX-License-Identifier: MIT
#include "../support/RunStage.h"

#include <MessageReader.h>
#include <RecordFolder.h>
#include <RecordedMessage.h>
#include <RunRecorder.h>
#include <Shutdown.h>
#include <SystemSkips.h>

namespace {

constexpr RunArchive::Limits limits = {1000, 1000};

} // namespace

class tst_run_recorder : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;
    std::unique_ptr<Run> m_run;
    std::unique_ptr<RunRecorder> m_recorder;

    void prepare(const QByteArray& word, RunRecorder::Face face = RunRecorder::Face::Window)
    {
        m_run = m_stage->makeRun(word);
        m_recorder = std::make_unique<RunRecorder>(*m_run, face, RunArchive::ofUser(), limits);
    }

    void start()
    {
        QVERIFY(m_stage->setUp(*m_run).isReady());
        QVERIFY(m_run->start());
    }

    RunRecord finished() const
    {
        if (!QTest::qWaitFor([this] { return m_recorder->isFinished(); }, RunStage::longTime)) {
            qFatal("no record");
        }
        return RunArchive::ofUser().record(m_recorder->number()).value_or(RunRecord());
    }

    static QVector<RecordedMessage> messagesOf(const RunRecord& record)
    {
        QVector<RecordedMessage> result;
        MessageReader(RecordFolder(record.folder).messagesFile())
            .readAll([&result](const auto& message) { result.append(message); });
        return result;
    }

private Q_SLOTS:
    void init() { m_stage = std::make_unique<RunStage>(); }

    void cleanup()
    {
        m_recorder.reset();
        m_run.reset();
        m_stage.reset();
    }

    void validRunIsRecorded()
    {
        prepare("valid");
        start();
        const RunRecord record = finished();
        QCOMPARE(record.number, 1);
        QCOMPARE(record.state, RunRecord::State::Valid);
        QCOMPARE(record.outcome, text("valid"));
        QCOMPARE(record.face, text("window"));
        QCOMPARE(record.component, text("runkest"));
        QCOMPARE(record.model, m_stage->desk().path("models/m.nec"));
        QCOMPARE(record.workingDirectory, m_stage->desk().path("models"));
        QVERIFY(record.program.endsWith(text("home/bin/runkest")));
        QCOMPARE(record.arguments.value(0), text("m.nec"));
        QCOMPARE(record.totalPercentage, 100);
        QCOMPARE(record.stoppedBy, QString());
        QCOMPARE(contentOf(record.modelCopyPath()), QByteArray("valid"));
        QVERIFY(record.cores > 0);
        QVERIFY(!record.host.isEmpty());
        QVERIFY(record.started.secsTo(record.ended) < 60);
        QCOMPARE(record.launchOptions.size(), 39);
        QVERIFY(record.changedOptions().isEmpty());
    }

    void endIsExplained_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<bool>("isCrash");
        QTest::addColumn<QString>("reason");
        QTest::newRow("exit code") << QByteArray("fault") << 3 << false << text("exit code 3");
        QTest::newRow("signal") << QByteArray("dies 20 9") << crashCode(SIGKILL) << true
                                << Processes::killed().meaning;
    }

    void endIsExplained()
    {
        QFETCH(QByteArray, word);
        QFETCH(int, exitCode);
        QFETCH(bool, isCrash);
        QFETCH(QString, reason);
        prepare(word, RunRecorder::Face::Terminal);
        start();
        const RunRecord record = finished();
        QCOMPARE(record.state, RunRecord::State::Fault);
        QCOMPARE(record.exitCode, exitCode);
        QCOMPARE(record.isCrash, isCrash);
        QVERIFY2(record.reason.contains(reason), qPrintable(record.reason));
        QCOMPARE(record.face, text("terminal"));
    }

    void refusedRunIsRecordedWithItsProblem()
    {
        prepare("valid");
        m_run->refuse(text("there is no component"));
        const RunRecord record = finished();
        QCOMPARE(record.state, RunRecord::State::NotStarted);
        QCOMPARE(record.problem, text("there is no component"));
        QVERIFY(messagesOf(record).isEmpty());
    }

    void recordSaysWhoStoppedTheRun_data()
    {
        QTest::addColumn<bool>("isShutdown");
        QTest::addColumn<QString>("stoppedBy");
        QTest::newRow("the user") << false << text("the user");
        QTest::newRow("the end of the program") << true << text("kestdesk, which was asked to end");
    }

    void recordSaysWhoStoppedTheRun()
    {
        QFETCH(bool, isShutdown);
        QFETCH(QString, stoppedBy);
        prepare("wait");
        Shutdown shutdown;
        shutdown.add(*m_run);
        m_stage->startWaiting(*m_run);
        if (isShutdown) {
            shutdown.request();
        } else {
            m_run->stop();
        }
        const RunRecord record = finished();
        QCOMPARE(record.state, RunRecord::State::Stopped);
        QCOMPARE(record.stoppedBy, stoppedBy);
    }

    // Of the dialog, which stops the runner itself.
    void stopByTheDialogIsTheUsers()
    {
        prepare("wait");
        m_stage->startWaiting(*m_run);
        m_run->runner()->stopProcess();
        QCOMPARE(finished().stoppedBy, text("the user"));
    }

    void changedOptionsAreMarked()
    {
        writeFile(m_stage->desk().path("user/kest.ini"), "[options]\nKest.ProcessPriority=0\n");
        prepare("valid");
        start();
        const RunRecord record = finished();
        QVERIFY(!record.launchOptions.isEmpty());
        const QVector<RunRecord::Option> changed = record.changedOptions();
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.constFirst().name, text("Kest.ProcessPriority"));
    }

    void messagesAreRecordedWithTheirTimes()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        prepare("asked-ends 100 0");
        m_stage->startWaiting(*m_run);
        constexpr int pause = 300; // ms
        QTest::qWait(pause);
        m_run->stop();
        const QVector<RecordedMessage> messages = messagesOf(finished());
        QVERIFY(messages.size() >= 2);
        QVERIFY(messages.constLast().time >= messages.constFirst().time + pause / 2);
        for (int i = 1; i < messages.size(); ++i) {
            QVERIFY(messages.at(i).time >= messages.at(i - 1).time);
        }
    }

    void filesAreRecorded()
    {
        prepare("files");
        start();
        const QVector<RecordedMessage> messages = messagesOf(finished());
        QVERIFY(messages.size() >= 4);
        QVERIFY(std::any_of(messages.begin(), messages.end(), [](const auto& message) {
            return message.type == common_IProcessMessage::File;
        }));
    }

    void recorderOutlivesItsRun()
    {
        prepare("valid");
        QSignalSpy ended(m_run.get(), &Run::ended);
        start();
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, RunStage::longTime);
        m_run.reset();
        QCOMPARE(finished().state, RunRecord::State::Valid);
    }
};

QTEST_MAIN(tst_run_recorder)

#include "tst_run_recorder.moc"
