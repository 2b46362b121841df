// SPDX-License-Identifier: MIT
#include "MachinesStage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// What "kestdesk machines" says in a job of Slurm.
class tst_kestdesk_machines_job : public QObject, private MachinesStage
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        setJob("node[01-02],gpu1", "4(x2),1");
    }

    void cleanup() { expectNoProcesses(); }

    void showSaysThatTheJobIsUsed_data()
    {
        QTest::addColumn<QByteArray>("installation"); // null: there is no file
        QTest::addColumn<QByteArray>("user");
        QTest::addColumn<QString>("remark"); // INSTALLATION and USER are the files
        const QByteArray none;
        const QString foreign =
            text("not used: USER, the machines file names the host '%1', which does not belong to "
                 "the Slurm job 17, so the hosts of the job are used");
        // clang-format off
        QTest::newRow("no file")               << none                   << none                      << text("there is no machines file");
        QTest::newRow("new installation")      << QByteArray("# none\n") << none                      << text("INSTALLATION names no host");
        QTest::newRow("the user names none")   << none                   << QByteArray("")            << text("USER names no host");
        QTest::newRow("another host")          << none                   << QByteArray("node01\na\n") << foreign.arg(text("a"));
        QTest::newRow("this machine")          << none                   << localLine()               << foreign.arg(text("localhost"));
        // clang-format on
    }

    void showSaysThatTheJobIsUsed()
    {
        QFETCH(QByteArray, installation);
        QFETCH(QByteArray, user);
        QFETCH(QString, remark);
        write("home/shared/mpi/machines.kest", installation);
        write("user/machines.kest", user);
        const Desk::Result result = machines("show");
        remark.replace(text("INSTALLATION"), m_desk->path("home/shared/mpi/machines.kest") +
                                                 text(" (the installation's, in KEST_HOME)"));
        remark.replace(text("USER"), m_desk->path("user/machines.kest") +
                                         text(" (the user's, in KEST_USER_HOME)"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(
            lines(result.output),
            QStringList({text("the Slurm job 17 (in SLURM_JOB_NODELIST), whose hosts runs use"),
                         text("  node01     4"), text("  node02     4"), text("  gpu1       1"),
                         text("in all: 9 processes, hosts: 3"), remark}));
        QCOMPARE(result.exitCode, 0);
        const QJsonObject job = showJob();
        QCOMPARE(job.value(text("id")).toString(), text("17"));
        QCOMPARE(job.value(text("isUsed")).toBool(), true);
        QCOMPARE(job.value(text("error")).toString(), QString());
        QCOMPARE(job.value(text("processes")).toInt(), 9);
        QCOMPARE(job.value(text("entries")).toArray().at(2).toObject(),
                 QJsonObject({{text("host"), text("gpu1")}, {text("processes"), 1}}));
    }

    void fileOfHostsOfTheJobIsUsed()
    {
        writeMachines("gpu1:3\nNODE01.example.org\n");
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output),
                 QStringList(
                     {m_desk->path("user/machines.kest") + text(" (the user's, in KEST_USER_HOME)"),
                      text("  gpu1                   3"), text("  NODE01.example.org     1"),
                      text("in all: 4 processes, hosts: 2"),
                      text("all hosts belong to the Slurm job 17, so runs use this file")}));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(showJob().value(text("isUsed")).toBool(), false);
    }

    void fileWithAnErrorIsShownAsEver()
    {
        writeMachines("gpu1:x\n");
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output).value(0),
                 m_desk->path("user/machines.kest") + text(" (the user's, in KEST_USER_HOME)"));
        QCOMPARE(lines(result.output).constLast(),
                 text("line 1, error: gpu1:x: \"x\" is no number of processes"));
        QCOMPARE(result.exitCode, 1);
    }

    void jobThatCannotBeUsedIsAnError_data()
    {
        QTest::addColumn<QByteArray>("user");
        QTest::addColumn<QString>("next"); // line; FILE is the user's
        QTest::newRow("no file") << QByteArray() << "There is no machines file. Looked for:";
        QTest::newRow("a file") << QByteArray("gpu1:3\n") << "FILE (the user's, in KEST_USER_HOME)";
    }

    void jobThatCannotBeUsedIsAnError()
    {
        QFETCH(QByteArray, user);
        QFETCH(QString, next);
        write("user/machines.kest", user);
        m_desk->set("SLURM_JOB_NODELIST", text("node[01-"));
        const Desk::Result result = machines("show");
        const QString error = text(
            "the Slurm job 17 cannot be used: SLURM_JOB_NODELIST is 'node[01-', \"01-\" is no "
            "number and no range such as \"01-12\" (unset SLURM_JOB_ID to run without the job)");
        QCOMPARE(lines(result.output).value(0), error);
        QCOMPARE(lines(result.output).value(1),
                 next.replace(text("FILE"), m_desk->path("user/machines.kest")));
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(showJob().value(text("error")).toString(), error);
        QCOMPARE(showJob().value(text("isUsed")).toBool(), false);
    }

    void withoutAJobThereIsNoWordOfOne()
    {
        m_desk->unset("SLURM_JOB_ID");
        const Desk::Result result = machines("show");
        QVERIFY2(!result.output.contains(text("Slurm")), qPrintable(result.output));
        QCOMPARE(result.exitCode, 1);
        QVERIFY(jsonReport().contains(text("job")));
        QVERIFY(jsonReport().value(text("job")).isNull());
    }

    void checkAsksTheHostsOfTheJob()
    {
        setJob("127.0.0.11,127.0.0.12", "2,1");
        writeMachines("elsewhere.invalid:4\n");
        host("127.0.0.11", "answer 2");
        host("127.0.0.12", "answer 8");
        const Desk::Result result = machines("check --timeout 30");
        QVERIFY2(result.output.endsWith(text("127.0.0.11: fine: 2 cores for 2 processes\n"
                                             "127.0.0.12: fine: 8 cores for 1 process\n")),
                 qPrintable(result.output));
        QCOMPARE(result.exitCode, 0);
    }

private:
    void setJob(const char* hosts, const char* tasks)
    {
        m_desk->set("SLURM_JOB_ID", text("17"));
        m_desk->set("SLURM_JOB_NODELIST", text(hosts));
        m_desk->set("SLURM_TASKS_PER_NODE", text(tasks));
    }

    void write(const char* file, const QByteArray& content) const
    {
        if (!content.isNull()) {
            writeFile(m_desk->path(file), content);
        }
    }

    QJsonObject jsonReport() const
    {
        return QJsonDocument::fromJson(machines("show --json").output.toUtf8()).object();
    }

    QJsonObject showJob() const { return jsonReport().value(text("job")).toObject(); }
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_job)
#include "tst_kestdesk_machines_job.moc"
