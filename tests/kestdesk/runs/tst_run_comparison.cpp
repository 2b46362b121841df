// SPDX-License-Identifier: MIT
#include "RecordsStage.h"

#include <RunComparison.h>

#include <QJsonArray>
#include <QtTest>

#include <functional>

using Change = std::function<void(RunRecord&)>;
using Fields = QVector<RunComparison::Field>;
using State = RunComparison::File::State;
using Type = RecordedMessage::Type;

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(RunRecord::File)
Q_DECLARE_METATYPE(RunComparison::File::State)

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray table(const QByteArray& rows)
{
    return "frequency_MHz,resistance_ohm,reactance_ohm,swr\n" + rows;
}

// "name: left | right" of each difference but those of texts, messages and files.
QStringList fieldsOf(const RunComparison& comparison)
{
    QStringList result;
    for (const Fields* const fields :
         {&comparison.run, &comparison.launchOptions, &comparison.environment, &comparison.computer,
          &comparison.outcome}) {
        for (const RunComparison::Field& field : *fields) {
            result.append(field.name + text(": ") + field.left + text(" | ") + field.right);
        }
    }
    return result;
}

} // namespace

// What is different between two runs, by their records.
class tst_run_comparison : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RecordsStage> m_stage;

private Q_SLOTS:
    void init() { m_stage = std::make_unique<RecordsStage>(); }

    void runsThatDifferInTimeOnlyAreTheSame()
    {
        RunRecord second = m_stage->valid();
        second.started = second.started.addDays(1);
        second.ended = second.ended.addDays(1);
        second.duration = 7000;
        const RunRecord left = m_stage->add(m_stage->valid());
        const auto comparison = RunComparison::of(left, m_stage->add(second));
        QVERIFY(comparison.isSame());
        QCOMPARE(fieldsOf(comparison), QStringList());
        QCOMPARE(comparison.leftNumber, 1);
        QCOMPARE(comparison.rightNumber, 2);
        QCOMPARE(comparison.leftDuration, 5000);
        QCOMPARE(comparison.rightDuration, 7000);
    }

    void fieldsThatDifferAreListed_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("difference");
        const auto row = [](const char* difference, const Change& change) {
            QTest::newRow(difference) << change << text(difference);
        };
        row("component: runkest | prekest", [](RunRecord& r) { r.component = text("prekest"); });
        row("runOptions:  | parallel remote", [](RunRecord& r) {
            r.runOptions = QStringList{text("parallel"), text("remote")};
        });
        row("processes: 1 | 8", [](RunRecord& r) { r.processes = 8; });
        row("program: /suite/bin/runkest | /x/runkest",
            [](RunRecord& r) { r.program = text("/x/runkest"); });
        row("host: here | there", [](RunRecord& r) { r.host = text("there"); });
        row("cores: 0 | 4", [](RunRecord& r) { r.cores = 4; });
        row("suiteVersion:  | 2", [](RunRecord& r) { r.suiteVersion = text("2"); });
        row("NAME:  | a=b", [](RunRecord& r) { r.environment.append(text("NAME=a=b")); });
        row("RunParallel:  | true", [](RunRecord& r) {
            r.launchOptions.append({text("RunParallel"), text("true"), {}});
        });
        row("exitCode: 0 | 3", [](RunRecord& r) { r.exitCode = 3; });
        row("isCrash: false | true", [](RunRecord& r) { r.isCrash = true; });
        row("warnings: 0 | 2", [](RunRecord& r) { r.warnings = 2; });
        row("state: valid | fault", [](RunRecord& r) { r.state = RunRecord::State::Fault; });
    }

    void fieldsThatDifferAreListed()
    {
        QFETCH(Change, change);
        const RunRecord left = m_stage->add(m_stage->valid());
        RunRecord right = m_stage->add(m_stage->valid());
        change(right);
        const auto comparison = RunComparison::of(left, right);
        QVERIFY(!comparison.isSame());
        QFETCH(QString, difference);
        QCOMPARE(fieldsOf(comparison), QStringList(difference));
    }

    void changedCardsAreListedWithTheirLines()
    {
        const RunRecord left = m_stage->add(m_stage->valid(), {}, "CE\nGE\nFR 0 1\nEN\n");
        const RunRecord right = m_stage->add(m_stage->valid(), {}, "CE\nGE\nFR 0 2\nXQ\nEN\n");
        const auto comparison = RunComparison::of(left, right);
        QVERIFY(!comparison.isSame());
        QCOMPARE(comparison.model.changes.size(), 1);
        const suite::LineChange change = comparison.model.changes.constFirst();
        QCOMPARE(change.leftLine, 3);
        QCOMPARE(change.left, QStringList(text("FR 0 1")));
        QCOMPARE(change.right, QStringList({text("FR 0 2"), text("XQ")}));
    }

    void lineEndsOfModelsAreNoChangedCards()
    {
        const auto comparison =
            RunComparison::of(m_stage->add(m_stage->valid(), {}, "GE\nEN\n"),
                              m_stage->add(m_stage->valid(), {}, "GE\r\nEN\r\n"));
        QVERIFY(!comparison.model.isSame);
        QCOMPARE(comparison.model.changes.size(), 0);
    }

    void missingCopyIsAProblem()
    {
        const RunRecord left = m_stage->add(m_stage->valid());
        const RunRecord right = m_stage->add(m_stage->valid());
        QVERIFY(QFile::remove(right.modelCopyPath()));
        const auto comparison = RunComparison::of(left, right);
        QVERIFY(!comparison.isSame());
        QVERIFY2(comparison.model.problem.startsWith(
                     text("the copy in the record of run 2 cannot be read")),
                 qPrintable(comparison.model.problem));
    }

    void machinesFilesAreCompared()
    {
        const QString machines = m_stage->path(text("machines.kest"));
        m_stage->write(machines, "one:2\n");
        const RunRecord left = m_stage->add(m_stage->valid(), {}, "EN\n", machines);
        m_stage->write(machines, "one:2\ntwo:4\n");
        const RunRecord right = m_stage->add(m_stage->valid(), {}, "EN\n", machines);
        const auto comparison = RunComparison::of(left, right);
        QVERIFY(!comparison.isSame());
        QCOMPARE(comparison.machinesFile.changes.value(0).right, QStringList(text("two:4")));
    }

    void messagesOfOneRunOnlyAreListedBySeverity()
    {
        const RunRecord left = m_stage->add(
            m_stage->valid(), {{1, Type::Notice, text("same")}, {2, Type::Output, text("left")}});
        const RunRecord right = m_stage->add(m_stage->valid(), {{1, Type::Notice, text("same")},
                                                                {2, Type::Notice, text("new")},
                                                                {3, Type::Warning, text("twice")},
                                                                {4, Type::Warning, text("twice")},
                                                                {5, Type::Error, text("bad")}});
        const auto comparison = RunComparison::of(left, right);
        QStringList found;
        for (const RunComparison::Message& message : comparison.messages) {
            found.append(QStringLiteral("%1 %2 %3 %4")
                             .arg(RecordedMessage::word(message.type), message.text)
                             .arg(message.left)
                             .arg(message.right));
        }
        QCOMPARE(found, QStringList({text("error bad 0 1"), text("warning twice 0 2"),
                                     text("notice new 0 1")}));
        QVERIFY(!comparison.isSame());
    }

    void missingMessagesAreAProblem()
    {
        const RunRecord left = m_stage->add(m_stage->valid());
        const RunRecord right = m_stage->add(m_stage->valid());
        QVERIFY(QFile::remove(RecordFolder(left.folder).messagesFile()));
        const auto comparison = RunComparison::of(left, right);
        QCOMPARE(comparison.problems, QStringList(text("the messages of run 1 cannot be read")));
        QVERIFY(!comparison.isSame());
    }

    void filesAreCompared_data()
    {
        QTest::addColumn<QVector<RunRecord::File>>("left");
        QTest::addColumn<QVector<RunRecord::File>>("right");
        QTest::addColumn<State>("state");
        const RunRecord::File file = {text("/m/a"), 3, text("11"), {}};
        const RunRecord::File other = {text("/m/a"), 3, text("22"), {}};
        const RunRecord::File longer = {text("/m/a"), 4, {}, {}};
        const RunRecord::File unknown = {text("/m/a"), 3, {}, {}};
        const RunRecord::File missing = {text("/m/a"), -1, {}, {}};
        using Files = QVector<RunRecord::File>;
        QTest::newRow("same") << Files{file} << Files{file} << State::Same;
        QTest::newRow("checksum") << Files{file} << Files{other} << State::Different;
        QTest::newRow("size") << Files{unknown} << Files{longer} << State::Different;
        QTest::newRow("missing") << Files{missing} << Files{file} << State::Different;
        QTest::newRow("both missing") << Files{missing} << Files{missing} << State::Same;
        QTest::newRow("no checksum") << Files{unknown} << Files{file} << State::Unknown;
        QTest::newRow("only left") << Files{file} << Files{} << State::OnlyLeft;
        QTest::newRow("only right") << Files{} << Files{file} << State::OnlyRight;
    }

    void filesAreCompared()
    {
        QFETCH(QVector<RunRecord::File>, left);
        QFETCH(QVector<RunRecord::File>, right);
        RunRecord first = m_stage->valid();
        RunRecord second = m_stage->valid();
        first.files = left;
        second.files = right;
        const auto comparison = RunComparison::of(m_stage->add(first), m_stage->add(second));
        QCOMPARE(comparison.files.size(), 1);
        QTEST(comparison.files.constFirst().state, "state");
        QCOMPARE(comparison.isSame(), comparison.files.constFirst().state == State::Same);
    }

    void filesOfModelsOfOtherNamesCorrespond()
    {
        RunRecord first = m_stage->valid();
        RunRecord second = m_stage->valid();
        second.model = m_stage->modelPath(text("longer.nec"));
        first.files = {m_stage->result(text("dipole.out"), "1")};
        second.files = {m_stage->result(text("longer.out"), "2")};
        const auto comparison = RunComparison::of(m_stage->add(first), m_stage->add(second));
        QCOMPARE(comparison.files.size(), 1);
        QCOMPARE(comparison.files.constFirst().state, State::Different);
        QCOMPARE(comparison.files.constFirst().right->path, m_stage->modelPath(text("longer.out")));
        QVERIFY(!comparison.files.constFirst().table);
        QCOMPARE(comparison.files.constFirst().problem, QString());
    }

    void tablesAreComparedByFrequency()
    {
        RunRecord first = m_stage->valid();
        RunRecord second = m_stage->valid();
        second.model = m_stage->modelPath(text("longer.nec"));
        first.files = {m_stage->result(text("dipole.csv"), table("1,0,10,2\n2,50,0,1\n"))};
        second.files = {m_stage->result(text("longer.csv"), table("1,0,8,2\n2,50,0,1\n"))};
        const auto comparison = RunComparison::of(m_stage->add(first), m_stage->add(second));
        QVERIFY(comparison.files.constFirst().table.has_value());
        QCOMPARE(comparison.files.constFirst().table->largest, 0.2);
        QCOMPARE(comparison.files.constFirst().table->frequency, 1.);
    }

    void tableThatWasOverwrittenIsNotCompared()
    {
        RunRecord first = m_stage->valid();
        first.files = {m_stage->result(text("dipole.csv"), table("1,0,10,2\n"))};
        RunRecord second = m_stage->valid();
        second.files = {m_stage->result(text("dipole.csv"), table("1,0,8,2\n"))};
        const RunRecord left = m_stage->add(first);
        const auto comparison = RunComparison::of(left, m_stage->add(second));
        const RunComparison::File& file = comparison.files.constFirst();
        QCOMPARE(file.state, State::Different);
        QVERIFY(!file.table);
        QVERIFY2(file.problem.endsWith(text("dipole.csv is no longer what run 1 has written")),
                 qPrintable(file.problem));
    }

    void copyOfATableIsComparedWhereItWasOverwritten()
    {
        RunRecord first = m_stage->valid();
        const QByteArray old = table("1,0,10,2\n");
        first.files = {m_stage->result(text("dipole.csv"), old)};
        first.files[0].copy = text("table-1.csv");
        const RunRecord left = m_stage->add(first);
        m_stage->write(QDir(left.folder).filePath(text("table-1.csv")), old);
        RunRecord second = m_stage->valid();
        second.files = {m_stage->result(text("dipole.csv"), table("1,0,8,2\n"))};
        const auto comparison = RunComparison::of(left, m_stage->add(second));
        QVERIFY(comparison.files.constFirst().table.has_value());
        QCOMPARE(comparison.files.constFirst().table->left.reactance, 10.);
    }

    void jsonHasAllParts()
    {
        RunRecord second = m_stage->valid();
        second.host = text("there");
        second.files = {m_stage->result(text("dipole.csv"), table("1,0,8,2\n"))};
        const auto comparison =
            RunComparison::of(m_stage->add(m_stage->valid(), {}, "GE\n"),
                              m_stage->add(second, {{1, Type::Error, text("bad")}}, "EN\n"));
        const QJsonObject json = comparison.toJson();
        QCOMPARE(json.keys(), QStringList({text("computer"), text("duration"), text("environment"),
                                           text("files"), text("launchOptions"), text("left"),
                                           text("machinesFile"), text("messages"),
                                           text("modelText"), text("outcome"), text("problems"),
                                           text("right"), text("run"), text("same")}));
        QCOMPARE(json.value(text("same")), QJsonValue(false));
        QCOMPARE(json[text("computer")][0][text("right")].toString(), text("there"));
        QCOMPARE(json[text("messages")][0][text("text")].toString(), text("bad"));
        QCOMPARE(json[text("modelText")][text("changes")][0][text("left")][0].toString(),
                 text("GE"));
        QCOMPARE(json[text("files")][0][text("state")].toString(), text("only right"));
        QVERIFY(json[text("files")][0][text("left")].isNull());
    }
};

QTEST_GUILESS_MAIN(tst_run_comparison)
#include "tst_run_comparison.moc"
