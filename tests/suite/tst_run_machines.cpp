// SPDX-License-Identifier: MIT
#include <RunMachines.h>

#include <QTemporaryDir>
#include <QtTest>

using suite::RunMachines;
using suite::SlurmJob;

namespace {

// A job of two hosts, or one that cannot be used, or none.
SlurmJob jobOf(const QString& hosts)
{
    QProcessEnvironment environment;
    if (!hosts.isNull()) {
        environment.insert(QStringLiteral("SLURM_JOB_ID"), QStringLiteral("17"));
        environment.insert(QStringLiteral("SLURM_JOB_NODELIST"), hosts);
        environment.insert(QStringLiteral("SLURM_TASKS_PER_NODE"), QStringLiteral("3(x2)"));
    }
    return SlurmJob(environment);
}

const char* const noFile = nullptr;

} // namespace

// Whether a run has the hosts of its machines file or those of a job.
class tst_run_machines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hostsAreThoseThatMayBeUsed_data()
    {
        QTest::addColumn<QByteArray>("file"); // null: there is none
        QTest::addColumn<QString>("job");
        QTest::addColumn<QString>("hosts");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("remark"); // in which the job is "JOB"
        QTest::addColumn<QString>("error");
        const QString job = QStringLiteral("n[1-2]");
        const QString wrong = QStringLiteral("n[1-2");
        const QString none;
        const QString file = QStringLiteral("the machines file");
        const QString ofJob = QStringLiteral("the Slurm job 17");
        const QString foreign =
            QStringLiteral("the machines file names the host '%1', which does "
                           "not belong to the Slurm job 17, so the hosts of the "
                           "job are used");
        const QString wrongJob = QStringLiteral(
            "the Slurm job 17 cannot be used: SLURM_JOB_NODELIST is 'n[1-2', a "
            "\"[\" has no \"]\" behind it (unset SLURM_JOB_ID to run without the job)");
        const QString noHost =
            QStringLiteral("the machines file 'm' names no host, add a line such "
                           "as 'localhost:2' for this machine");
        const QString noNumber = QStringLiteral(
            "the machines file 'm' has in line 1 'n1:x', \"x\" is no number of processes");
        // clang-format off
        QTest::newRow("file alone")            << QByteArray("a:2\n")        << none  << "a:2"       << file  << none << none;
        QTest::newRow("job alone")             << QByteArray(noFile)         << job   << "n1:3,n2:3" << ofJob << none << none;
        QTest::newRow("file of no host")       << QByteArray("# a\n")        << job   << "n1:3,n2:3" << ofJob << none << none;
        QTest::newRow("file of the job")       << QByteArray("n2:1\nn1:9\n") << job   << "n2:1,n1:9" << file  << none << none;
        QTest::newRow("file of one host")      << QByteArray("n2\n")         << job   << "n2:1"      << file  << none << none;
        QTest::newRow("a host outside")        << QByteArray("n1\na:2\n")    << job   << "n1:3,n2:3" << ofJob << foreign.arg(QStringLiteral("a")) << none;
        QTest::newRow("this machine")          << QByteArray("localhost:4\n") << job  << "n1:3,n2:3" << ofJob << foreign.arg(QStringLiteral("localhost")) << none;
        QTest::newRow("nothing")               << QByteArray(noFile)         << none  << ""          << file  << none << none;
        QTest::newRow("no host, no job")       << QByteArray("# a\n")        << none  << ""          << file  << none << noHost;
        QTest::newRow("wrong file")            << QByteArray("n1:x\n")       << none  << ""          << file  << none << noNumber;
        QTest::newRow("wrong file in a job")   << QByteArray("n1:x\n")       << job   << ""          << file  << none << noNumber;
        QTest::newRow("wrong job")             << QByteArray(noFile)         << wrong << ""          << file  << none << wrongJob;
        QTest::newRow("file in a wrong job")   << QByteArray("n1:1\n")       << wrong << "n1:1"      << file  << none << wrongJob;
        QTest::newRow("no host, wrong job")    << QByteArray("# a\n")        << wrong << ""          << file  << none << wrongJob;
        // clang-format on
    }

    void hostsAreThoseThatMayBeUsed()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, job);
        QFETCH(QString, error);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("m"));
        if (!file.isNull()) {
            QFile written(path);
            QVERIFY(written.open(QIODevice::WriteOnly) && written.write(file) == file.size());
        }
        const RunMachines machines(file.isNull() ? std::nullopt : std::make_optional(path),
                                   jobOf(job));
        QTEST(machines.machines().hostList(), "hosts");
        QTEST(machines.source(), "source");
        QTEST(machines.remark(), "remark");
        QCOMPARE(machines.errors(), error.isEmpty() ? QStringList() : QStringList(error));
        QCOMPARE(machines.hasSource(), !file.isNull() || !job.isNull());
        QCOMPARE(machines.isFromJob(), machines.source() != QStringLiteral("the machines file"));
    }

    void fileThatIsMissingIsAnErrorInAJob()
    {
        const RunMachines machines(QStringLiteral("/no/such/file"),
                                   jobOf(QStringLiteral("n[1-2]")));
        QCOMPARE(machines.errors(),
                 QStringList(QStringLiteral("the machines file '/no/such/file' does not exist")));
        QVERIFY(machines.machines().hosts().isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_run_machines)
#include "tst_run_machines.moc"
