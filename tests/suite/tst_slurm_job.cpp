// SPDX-License-Identifier: MIT
#include <SlurmJob.h>

#include <QtTest>

using suite::MachinesFile;
using suite::SlurmJob;

namespace {

// "NAME=value", several with blanks between them.
QProcessEnvironment environmentOf(const QString& assignments)
{
    QProcessEnvironment result;
    const QStringList parts = assignments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        result.insert(part.section(QLatin1Char('='), 0, 0), part.section(QLatin1Char('='), 1));
    }
    return result;
}

} // namespace

// The job of Slurm that a program runs in.
class tst_slurm_job : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void jobHasItsHosts_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("hosts");
        // clang-format off
        QTest::newRow("tasks")                  << "SLURM_JOB_NODELIST=n[01-03],g1 SLURM_TASKS_PER_NODE=2(x3),1 SLURM_JOB_CPUS_PER_NODE=8(x4)" << "n01:2,n02:2,n03:2,g1:1";
        QTest::newRow("processors")             << "SLURM_JOB_NODELIST=n[1-2] SLURM_JOB_CPUS_PER_NODE=8(x2)" << "n1:8,n2:8";
        QTest::newRow("processors of one node") << "SLURM_JOB_NODELIST=n1 SLURM_CPUS_ON_NODE=16" << "n1:16";
        QTest::newRow("tasks of a step")        << "SLURM_JOB_NODELIST=n[1-2] SLURM_TASKS_PER_NODE=1 SLURM_JOB_CPUS_PER_NODE=4,2 SLURM_CPUS_ON_NODE=4" << "n1:4,n2:2";
        QTest::newRow("empty tasks")            << "SLURM_JOB_NODELIST=n1 SLURM_TASKS_PER_NODE= SLURM_JOB_CPUS_PER_NODE=3" << "n1:3";
        QTest::newRow("a host twice")           << "SLURM_JOB_NODELIST=n[1,1] SLURM_TASKS_PER_NODE=2(x2)" << "n1:4";
        // clang-format on
    }

    void jobHasItsHosts()
    {
        QFETCH(QString, environment);
        const SlurmJob job(environmentOf(QStringLiteral("SLURM_JOB_ID=17 ") + environment));
        QVERIFY(job.isThere());
        QCOMPARE(job.error(), QString());
        QCOMPARE(job.id(), QStringLiteral("17"));
        QCOMPARE(job.name(), QStringLiteral("the Slurm job 17"));
        QTEST(job.machines().hostList(), "hosts");
    }

    void thereIsNoJobWithoutItsNumber_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::newRow("nothing") << "";
        QTest::newRow("hosts alone") << "SLURM_JOB_NODELIST=n1 SLURM_TASKS_PER_NODE=1";
        QTest::newRow("empty number") << "SLURM_JOB_ID= SLURM_JOB_NODELIST=n[ ";
    }

    void thereIsNoJobWithoutItsNumber()
    {
        QFETCH(QString, environment);
        const SlurmJob job(environmentOf(environment));
        QVERIFY(!job.isThere());
        QCOMPARE(job.error(), QString());
        QVERIFY(job.machines().hosts().isEmpty());
    }

    void jobWithWrongVariablesSaysWhichOne_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("no hosts")       << "SLURM_TASKS_PER_NODE=1" << "SLURM_JOB_NODELIST is not set";
        QTest::newRow("empty hosts")    << "SLURM_JOB_NODELIST= SLURM_TASKS_PER_NODE=1" << "SLURM_JOB_NODELIST is not set";
        QTest::newRow("wrong hosts")    << "SLURM_JOB_NODELIST=n[1- SLURM_TASKS_PER_NODE=1" << R"(SLURM_JOB_NODELIST is 'n[1-', "1-" is no number and no range such as "01-12")";
        QTest::newRow("long hosts")     << QStringLiteral("SLURM_JOB_NODELIST=%1[ SLURM_TASKS_PER_NODE=1").arg(QString(70, QLatin1Char('n')))
                                        << QStringLiteral("SLURM_JOB_NODELIST is '%1...', \"\" is no number and no range such as \"01-12\"").arg(QString(60, QLatin1Char('n')));
        QTest::newRow("no counts")      << "SLURM_JOB_NODELIST=n1" << "SLURM_TASKS_PER_NODE is not set";
        QTest::newRow("wrong tasks")    << "SLURM_JOB_NODELIST=n1 SLURM_TASKS_PER_NODE=x SLURM_JOB_CPUS_PER_NODE=1" << "SLURM_TASKS_PER_NODE is 'x', \"x\" is no number of processes such as \"4\" or \"4(x2)\"";
        QTest::newRow("wrong number")   << "SLURM_JOB_NODELIST=n1 SLURM_JOB_CPUS_PER_NODE=0" << "SLURM_JOB_CPUS_PER_NODE is '0', \"0\" is no number of processes such as \"4\" or \"4(x2)\"";
        QTest::newRow("too few tasks")  << "SLURM_JOB_NODELIST=n[1-3] SLURM_TASKS_PER_NODE=2(x2)" << "SLURM_TASKS_PER_NODE is '2(x2)', which is for 2 hosts and not for the 3 of SLURM_JOB_NODELIST";
        QTest::newRow("too many tasks") << "SLURM_JOB_NODELIST=n1 SLURM_TASKS_PER_NODE=2(x2)" << "SLURM_TASKS_PER_NODE is '2(x2)', which is for 2 hosts and not for the 1 of SLURM_JOB_NODELIST";
        QTest::newRow("one node's")     << "SLURM_JOB_NODELIST=n[1-2] SLURM_CPUS_ON_NODE=8" << "SLURM_CPUS_ON_NODE is '8', which is for 1 hosts and not for the 2 of SLURM_JOB_NODELIST";
        QTest::newRow("too many")       << "SLURM_JOB_NODELIST=n[1-2] SLURM_TASKS_PER_NODE=4096,1" << "it counts 4097 processes and the limit is 4096";
        // clang-format on
    }

    void jobWithWrongVariablesSaysWhichOne()
    {
        QFETCH(QString, environment);
        QFETCH(QString, reason);
        const SlurmJob job(environmentOf(QStringLiteral("SLURM_JOB_ID=17 ") + environment));
        QVERIFY(job.isThere());
        QCOMPARE(job.error(), QStringLiteral("the Slurm job 17 cannot be used: %1 (unset "
                                             "SLURM_JOB_ID to run without the job)")
                                  .arg(reason));
        QVERIFY(job.machines().hosts().isEmpty());
        QVERIFY(job.machines().isValid());
    }

    void foreignHostIsFound_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("foreign");
        // clang-format off
        QTest::newRow("no host")           << QByteArray("# none\n")            << "";
        QTest::newRow("all")               << QByteArray("n1\nn2:4\nn.de\n")    << "";
        QTest::newRow("some")              << QByteArray("n2:100\n")            << "";
        QTest::newRow("capitals")          << QByteArray("N1\n")                << "";
        QTest::newRow("with a domain")     << QByteArray("n1.example.org\n")    << "";
        QTest::newRow("without a domain")  << QByteArray("n\n")                 << "";
        QTest::newRow("same domain")       << QByteArray("n.DE\n")              << "";
        QTest::newRow("another domain")    << QByteArray("n.fr\n")              << "n.fr";
        QTest::newRow("another")           << QByteArray("n1\nn3\nn4\n")        << "n3";
        QTest::newRow("longer name")       << QByteArray("n11\n")               << "n11";
        QTest::newRow("this machine")      << QByteArray("n1\nlocalhost:4\n")   << "localhost";
        QTest::newRow("address")           << QByteArray("[fe80::1]\n")         << "fe80::1";
        // clang-format on
    }

    void foreignHostIsFound()
    {
        QFETCH(QByteArray, file);
        const SlurmJob job(environmentOf(QStringLiteral(
            "SLURM_JOB_ID=1 SLURM_JOB_NODELIST=n[1-2],n.de SLURM_TASKS_PER_NODE=1(x3)")));
        QCOMPARE(job.error(), QString());
        QTEST(job.firstForeignHost(MachinesFile::parse(file)), "foreign");
    }
};

QTEST_GUILESS_MAIN(tst_slurm_job)
#include "tst_slurm_job.moc"
