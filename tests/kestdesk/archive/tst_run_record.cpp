// SPDX-License-Identifier: MIT
#include <RunRecord.h>

#include <QJsonArray>
#include <QtTest>

namespace {

// Every member has a value of its own.
RunRecord fullRecord()
{
    RunRecord record;
    int next = 1;
    for (QString* text : {&record.face,         &record.owner,        &record.component,
                          &record.model,        &record.modelCopy,    &record.modelChecksum,
                          &record.machinesCopy, &record.program,      &record.workingDirectory,
                          &record.host,         &record.system,       &record.processor,
                          &record.user,         &record.suiteVersion, &record.qtVersion,
                          &record.installation, &record.outcome,      &record.reason,
                          &record.problem,      &record.stoppedBy,    &record.gap}) {
        *text = QStringLiteral("text \"%1\" \u00e4\n").arg(next++);
    }
    for (QStringList* list : {&record.runOptions, &record.arguments, &record.environment,
                              &record.leftOutHosts, &record.lastLines}) {
        *list = QStringList{QString(), QString::number(next++)};
    }
    for (int* number : {&record.cores, &record.segments, &record.frequencies, &record.processes,
                        &record.exitCode, &record.totalPercentage, &record.errors, &record.warnings,
                        &record.notices, &record.omittedLines, &record.repeats}) {
        *number = next++;
    }
    record.launchOptions = {{QStringLiteral("A"), QStringLiteral("1"), QStringLiteral("2")},
                            {QStringLiteral("B"), QString(), QString()}};
    record.files = {
        {QStringLiteral("/a b/c.csv"), 5000000000, QStringLiteral("abc"), QStringLiteral("copy")},
        {QStringLiteral("/gone"), -1, QString(), QString()}};
    record.started = QDateTime({2026, 3, 1}, {12, 0, 0, 123}, Qt::UTC);
    record.ended = record.started.addMSecs(86400001);
    record.duration = 5000000001;
    record.isCrash = true;
    record.state = RunRecord::State::Fault;
    return record;
}

QJsonObject jsonOf(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

class tst_run_record : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The JSON has a key for each member, so nothing that it says was lost on the way.
    void bothPartsComeBackAsTheyWere()
    {
        const RunRecord record = fullRecord();
        auto read = RunRecord::fromStart(record.startToJson());
        QVERIFY(read);
        QVERIFY(read->readEnd(record.endToJson()));
        QCOMPARE(read->startToJson(), record.startToJson());
        QCOMPARE(read->endToJson(), record.endToJson());
        QCOMPARE(record.startToJson().size(), 28);
        QCOMPARE(record.endToJson().size(), 17);
        QCOMPARE(read->files.at(0).size, Q_INT64_C(5000000000));
        QCOMPARE(read->duration, Q_INT64_C(5000000001));
        QCOMPARE(read->started, record.started);
        QCOMPARE(read->ended, record.ended);
        QCOMPARE(read->state, RunRecord::State::Fault);
        QVERIFY(read->isCrash);
    }

    void noTwoMembersShareAKey()
    {
        const QJsonObject json = fullRecord().toJson();
        QSet<QString> values;
        for (const QJsonValue& value : json) {
            values.insert(
                QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact)));
        }
        QCOMPARE(values.size(), json.size());
        QCOMPARE(json.size(), 28 + 17 + 2);
    }

    void everyEndHasItsWord_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("word");
        using State = RunRecord::State;
        const auto add = [](State state, const char* word) {
            QTest::newRow(word) << static_cast<int>(state) << QString::fromLatin1(word);
        };
        add(State::Interrupted, "interrupted");
        add(State::Valid, "valid");
        add(State::Fault, "fault");
        add(State::NotStarted, "could not start");
        add(State::Stopped, "stopped");
    }

    void everyEndHasItsWord()
    {
        QFETCH(int, state);
        QFETCH(QString, word);
        RunRecord record = fullRecord();
        record.state = static_cast<RunRecord::State>(state);
        QCOMPARE(record.endToJson().value(QLatin1String("state")).toString(), word);
        RunRecord read;
        QVERIFY(read.readEnd(record.endToJson()));
        QCOMPARE(read.state, record.state);
        QVERIFY(read.hasEnded());
    }

    void whatIsNoStartIsRefused_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("empty") << QByteArray("{}");
        QTest::newRow("no format") << QByteArray(R"({"started":"2026-03-01T12:00:00.000Z"})");
        QTest::newRow("later format")
            << QByteArray(R"({"format":2,"started":"2026-03-01T12:00:00.000Z"})");
        QTest::newRow("no time") << QByteArray(R"({"format":1})");
        QTest::newRow("bad time") << QByteArray(R"({"format":1,"started":"yesterday"})");
    }

    void whatIsNoStartIsRefused()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!RunRecord::fromStart(jsonOf(json)));
    }

    void whatIsNoEndChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("unknown state")
            << QByteArray(R"({"state":"great","ended":"2026-03-01T12:00:00.000Z"})");
        QTest::newRow("running") << QByteArray(
            R"({"state":"running","ended":"2026-03-01T12:00:00.000Z"})");
        QTest::newRow("no time") << QByteArray(R"({"state":"valid","exitCode":3})");
    }

    void whatIsNoEndChangesNothing()
    {
        QFETCH(QByteArray, json);
        RunRecord record;
        QVERIFY(!record.readEnd(jsonOf(json)));
        QCOMPARE(record.state, RunRecord::State::Running);
        QCOMPARE(record.exitCode, 0);
    }

    void onlyChangedOptionsDiffer()
    {
        const QVector<RunRecord::Option> changed = fullRecord().changedOptions();
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).name, QStringLiteral("A"));
    }

    void theCopyIsInTheFolder()
    {
        RunRecord record;
        QCOMPARE(record.modelCopyPath(), QString());
        record.folder = QStringLiteral("/archive/3");
        record.modelCopy = QStringLiteral("model.nec");
        QCOMPARE(record.modelCopyPath(), QStringLiteral("/archive/3/model.nec"));
    }
};

QTEST_GUILESS_MAIN(tst_run_record)

#include "tst_run_record.moc"
