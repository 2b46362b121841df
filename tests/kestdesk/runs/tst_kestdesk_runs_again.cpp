// SPDX-License-Identifier: MIT
#include "Desk.h"
#include "RecordsStage.h"

#include <PlayedProgram.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// Commands of the component, at their end.
constexpr const char* done = "out\n-*-total-percentage-*-100%\\n\n";
constexpr const char* failing = "out\ngot \ncall\nexit\n3\n";

} // namespace

// "kestdesk runs again": a recorded run once more, in the terminal.
class tst_kestdesk_runs_again : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<RecordsStage> m_stage; // its archive is that of the desk's user

    Desk::Result again(const QStringList& words) const
    {
        return m_desk->run(QStringList{text("runs"), text("again")} + words);
    }

    // What the component does, a word a line: commands of the tests' child.
    void teach(const QByteArray& commands) const
    {
        QVERIFY(PlayedProgram::teach(m_desk->path("home/bin/runkest"), commands));
    }

    // A parallel run on the hosts, whose component prints its machines file.
    void runOn(const QByteArray& hosts) const
    {
        teach(QByteArray("machines\n") + done);
        writeFile(m_stage->path(text("user/kest/machines.kest")), hosts);
        writeFile(m_desk->path("models/m.nec"), "old\n");
        const Desk::Result result =
            m_desk->run({text("--non-interactive"), text("--parallel"), text("m.nec")});
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        QVERIFY2(result.output.contains(QString::fromUtf8(hosts)), qPrintable(result.output));
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_stage = std::make_unique<RecordsStage>();
        m_desk->set("KEST_USER_HOME", m_stage->path(text("user/kest")));
        QVERIFY(QDir().mkpath(m_stage->path(text("user/kest"))));
        QVERIFY(PlayedProgram::install(m_desk->path("home/bin/runkest"), ""));
    }

    void runIsRepeatedAsItWas()
    {
        teach(QByteArray("model\n") + done);
        const QString model = m_desk->path("models/m.nec");
        writeFile(model, "old\n");
        QCOMPARE(m_desk->run({text("--non-interactive"), text("m.nec")}).exitCode, 0);
        const Desk::Result same = again({text("last")});
        QCOMPARE(same.exitCode, 0);
        QVERIFY2(same.output.contains(text("m.nec\nold\n")), qPrintable(same.output));
        writeFile(model, "new\n");
        const Desk::Result result = again({text("1"), text("--json")});
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.errors.contains(text("m-run1.nec\nold\n")), qPrintable(result.errors));
        const QJsonObject shown = QJsonDocument::fromJson(result.output.toUtf8()).object();
        QCOMPARE(shown[text("runs")][0][text("number")].toInt(), 3);
        QCOMPARE(contentOf(model), QByteArray("new\n"));
        QCOMPARE(m_stage->archive().numbers().size(), 3);
    }

    void stoppedRunIsResumed()
    {
        teach(failing);
        writeFile(m_desk->path("models/m.nec"), "old\n");
        QCOMPARE(m_desk->run({text("--non-interactive"), text("m.nec")}).exitCode, 1);
        const Desk::Result refused = again({text("1"), text("--resume")});
        QCOMPARE(refused.exitCode, 2);
        QVERIFY2(refused.errors.contains(text("run 1 is not resumed. There is no m.partial")),
                 qPrintable(refused.errors));
        writeFile(m_desk->path("models/m.partial"), "kept\n");
        writeFile(m_desk->path("models/m.nec"), "new\n"); // the component decides whether it fits
        const Desk::Result result = again({text("1"), text("--resume")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.output.contains(text("got m.nec --resume ")), qPrintable(result.output));
        QCOMPARE(m_stage->archive().record(2)->repeats, 1);
    }

    void hostsAreLeftOut_data()
    {
        QTest::addColumn<QString>("hosts");
        QTest::addColumn<QByteArray>("machines");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QStringList>("leftOut");
        QTest::newRow("one") << text("B") << QByteArray("a:2\n# b:1\nc:1\n") << text("b:1")
                             << QStringList(text("B"));
        QTest::newRow("two") << text("b,c") << QByteArray("a:2\n# b:1\n# c:1\n") << text("c:1")
                             << QStringList({text("b"), text("c")});
        QTest::newRow("one twice") << text("b,b") << QByteArray("a:2\n# b:1\nc:1\n") << text("b:1")
                                   << QStringList(text("b"));
    }

    void hostsAreLeftOut()
    {
        QFETCH(QString, hosts);
        QFETCH(QByteArray, machines);
        QFETCH(QString, comment);
        QFETCH(QStringList, leftOut);
        runOn("a:2\nb:1\nc:1\n");
        const Desk::Result result = again({text("--without"), hosts, text("last")});
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        QVERIFY2(result.output.contains(QString::fromUtf8(machines)), qPrintable(result.output));
        QVERIFY2(result.errors.contains(
                     text("kestdesk: a comment in the copy of the machines file: ") + comment),
                 qPrintable(result.errors));
        QCOMPARE(contentOf(m_stage->path(text("user/kest/machines.kest"))),
                 QByteArray("a:2\nb:1\nc:1\n"));
        QCOMPARE(m_stage->archive().record(2)->leftOutHosts, leftOut);
    }

    // As often as a host fails.
    void hostsAreLeftOutOneAfterTheOther()
    {
        runOn("a:2\nb:1\nc:1\n");
        const Desk::Result first = again({text("--without=b"), text("1")});
        QVERIFY2(first.exitCode == 0, qPrintable(first.errors));
        const Desk::Result result = again({text("--without=c"), text("2")});
        QVERIFY2(result.output.contains(text("a:2\n# b:1\n# c:1\n")), qPrintable(result.output));
    }

    void resumedRunLeavesHostsOut()
    {
        runOn("a:2\nb:1\n");
        teach(failing);
        const Desk::Result first = again({text("1")});
        QVERIFY2(first.exitCode == 1, qPrintable(first.errors));
        writeFile(m_desk->path("models/m.partial"), "kept\n");
        const Desk::Result result = again({text("--resume"), text("--without=b"), text("2")});
        QVERIFY2(result.output.contains(text("got m.nec --resume ")), qPrintable(result.output));
        QCOMPARE(m_stage->archive().record(3)->leftOutHosts, QStringList(text("b")));
    }

    void runThatCannotDoWithoutTheHostIsNotRepeated_data()
    {
        QTest::addColumn<QString>("hosts");
        QTest::addColumn<QString>("error");
        QTest::newRow("unknown") << text("x")
                                 << text("The host x is not in the machines file of the run.");
        QTest::newRow("all") << text("a,b")
                             << text("b is the only host in the machines file of the run.");
        QTest::newRow("hostile") << text("\u202ex") << text("The host <U+202E>x is not in ");
    }

    void runThatCannotDoWithoutTheHostIsNotRepeated()
    {
        QFETCH(QString, hosts);
        QFETCH(QString, error);
        runOn("a:2\nb:1\n");
        QVERIFY(QFile::remove(m_desk->path("models/m.nec"))); // its copy would be written
        const Desk::Result result = again({text("1"), text("--without"), hosts});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("kestdesk: run 1 is not repeated. ") + error),
                 qPrintable(result.errors));
        QCOMPARE(m_stage->archive().numbers().size(), 1);
        QCOMPARE(QDir(m_desk->path("models")).entryList({text("*.nec")}), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_runs_again)
#include "tst_kestdesk_runs_again.moc"
