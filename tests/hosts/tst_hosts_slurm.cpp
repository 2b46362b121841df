// SPDX-License-Identifier: MIT
#include "Hosts.h"
#include "SuiteRun.h"

#include <Text.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

// Runs in jobs of a real Slurm, which has the three hosts as its nodes.
class tst_hosts_slurm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void jobIsSolvedByItsHostsUntilItIsCancelled_data();
    void jobIsSolvedByItsHostsUntilItIsCancelled();
    void resultIsThatOfOneHost_data();
    void resultIsThatOfOneHost();

private:
    void start(QProcess& process, const QString& program, const QStringList& arguments) const;
    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr int patience = 25000; // ms

QStringList wordsOf(const QString& line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void tst_hosts_slurm::initTestCase()
{
    if (!Hosts::areThere() || qEnvironmentVariableIsEmpty("SLURM_CONF")) {
        QTest::qSkip("to be started by with-slurm", __FILE__, __LINE__);
    }
}

void tst_hosts_slurm::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(!copyModel(text("yagi.nec"), m_folder->path()).isEmpty());
    QVERIFY(!writeFile(m_folder->path(), text("two"), "node1\nnode3\n").isEmpty());
    QVERIFY(!writeFile(m_folder->path(), text("other"), "node1\nnode9\n").isEmpty());
    QStringList cards = dipoleCards();
    cards.replaceInStrings(text("FR 0 3 0 0 290 5"), text("FR 0 10000 0 0 200 0.02"));
    QVERIFY(!writeFile(m_folder->path(), text("long.nec"), deckOf(cards)).isEmpty());
}

void tst_hosts_slurm::cleanup()
{
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, patience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
}

void tst_hosts_slurm::start(QProcess& process, const QString& program,
                            const QStringList& arguments) const
{
    Hosts::prepare(process, program, arguments, m_folder->path());
    process.start();
    QVERIFY(process.waitForStarted());
}

void tst_hosts_slurm::jobIsSolvedByItsHostsUntilItIsCancelled_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<QString>("machines");
    QTest::addColumn<QStringList>("solving"); // a line for each process
    const QStringList all = {text("node1 sweepkest"), text("node2 sweepkest"),
                             text("node3 sweepkest")};
    // clang-format off
    QTest::newRow("all hosts")         << "-N3 --ntasks-per-node=1" << ""      << all;
    QTest::newRow("several tasks")     << "-N3 -n4"                 << ""      << QStringList(QStringList(text("node1 sweepkest")) + all);
    QTest::newRow("some of the hosts") << "-w node[2-3] -n2"        << ""      << QStringList(all.mid(1));
    QTest::newRow("chosen by a file")  << "-N3 -n3"                 << "two"   << QStringList{all[0], all[2]};
    QTest::newRow("a host outside")    << "-N3 -n3"                 << "other" << all;
    // clang-format on
}

void tst_hosts_slurm::jobIsSolvedByItsHostsUntilItIsCancelled()
{
    QFETCH(QString, job);
    QFETCH(QString, machines);
    QFETCH(QStringList, solving);
    QStringList run = {runkestProgram(), text("long.nec"), text("--parallel-authenticate"),
                       text("default")};
    if (!machines.isEmpty()) {
        run += {text("--machines-file"), machines};
    }
    QProcess process;
    start(process, text("salloc"), QStringList{text("-Q"), text("-K")} + wordsOf(job) + run);
    const auto sweeps = [] {
        QStringList result = Hosts::allProcesses().filter(text(" sweepkest"));
        result.sort();
        return result;
    };
    QVERIFY2(QTest::qWaitFor([&] { return sweeps() == solving; }, patience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n')) +
                        QString::fromUtf8(process.readAll())));
    QProcess cancel;
    start(cancel, text("scancel"), {text("-u"), text("root")});
    QVERIFY(cancel.waitForFinished(patience) && cancel.exitCode() == 0);
    QVERIFY(process.waitForFinished(patience));
}

void tst_hosts_slurm::resultIsThatOfOneHost_data()
{
    QTest::addColumn<QStringList>("program");
    QTest::newRow("the component") << QStringList{runkestProgram(), text("yagi.nec"),
                                                  text("--parallel-authenticate"), text("default")};
#ifdef KESTDESK
    QTest::newRow("kestdesk") << QStringList{text(KESTDESK), text("--non-interactive"),
                                             text("--parallel"), text("yagi.nec")};
#endif
}

void tst_hosts_slurm::resultIsThatOfOneHost()
{
    QFETCH(QStringList, program);
    QCOMPARE(runSuite(runkestProgram(), {text("yagi.nec")}, m_folder->path()).exitCode, 0);
    const QByteArray expected = readFile(path("yagi.csv"));
    QVERIFY(!expected.isEmpty() && QFile::remove(path("yagi.csv")));

    const QByteArray script = "#!/bin/sh\n"
                              "export KEST_HOME='" +
                              suiteHome().toUtf8() + "' KEST_USER_HOME='" +
                              m_folder->path().toUtf8() +
                              "'\n"
                              "exec '" +
                              program.join(text("' '")).toUtf8() + "'\n";
    QVERIFY(!writeFile(m_folder->path(), text("job.sh"), script).isEmpty());
    QProcess process;
    start(process, text("sbatch"), wordsOf(text("-W -N3 -n3 -o job.out job.sh")));
    QVERIFY(process.waitForFinished(patience));
    const QByteArray output = readFile(path("job.out"));
    QVERIFY2(process.exitCode() == 0, output.constData());
    static const QRegularExpression notice(
        text("the hosts are those of the Slurm job [0-9]+, number of hosts 3, of processes 3"));
    QVERIFY2(notice.match(QString::fromUtf8(output)).hasMatch(), output.constData());
    QVERIFY(readFile(path("yagi.csv")) == expected);
    QVERIFY(!QFile::exists(path("machines.kest")));
}

QTEST_GUILESS_MAIN(tst_hosts_slurm)
#include "tst_hosts_slurm.moc"
