// SPDX-License-Identifier: MIT
#include "Hosts.h"
#include "SuiteRun.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

// Runs over three hosts: the results are those of a run on one, a host that is lost is named, and
// nothing is left anywhere.
class tst_hosts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void resultIsThatOfOneHost_data();
    void resultIsThatOfOneHost();
    void hostThatIsCutOffIsNamed_data();
    void hostThatIsCutOffIsNamed();
    void hostIsLeftEmptyWhoeverIsMissedFirst_data();
    void hostIsLeftEmptyWhoeverIsMissedFirst();
    void signalEndsEverything_data();
    void signalEndsEverything();
    void hostThatCannotBeReached_data();
    void hostThatCannotBeReached();
    void failingEngineIsNamedWithItsHost();

private:
    void start(QProcess& run, const QStringList& arguments);
    QString path(const QString& name) const;
    bool waitForResults(QProcess& run);
    void verifyOldResults() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_output;
};

namespace {

constexpr int mostShown = 2000; // bytes of the end of an output

// The processes of a host that was cut off end when they have heard nothing for the limit of two
// seconds that with-hosts sets, and ssh after five.
constexpr int cutOffPatience = 25000; // ms
constexpr int stopLimit = 2000;       // ms
constexpr int cutOffDistance = 300;   // ms, more than between two heartbeats

// A parallel run over hosts with these counts.
QStringList parallel(const char* file)
{
    return {text("long.nec"), text("-np"),
            text("all"),      text("--parallel-authenticate"),
            text("default"),  text("--machines-file"),
            text(file)};
}

QStringList remote(const QStringList& words)
{
    return QStringList{text("long.nec"), text("--remote-host")} + words;
}

} // namespace

void tst_hosts::initTestCase()
{
    if (!Hosts::areThere()) {
        QTest::qSkip("to be started by with-hosts", __FILE__, __LINE__);
        return;
    }
}

void tst_hosts::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_output.clear();
    QStringList cards = dipoleCards();
    cards.replaceInStrings(text("FR 0 3 0 0 290 5"), text("FR 0 10000 0 0 200 0.02"));
    QVERIFY(!writeFile(m_folder->path(), text("long.nec"), deckOf(cards)).isEmpty());
    cards.insert(cards.size() - 1, text("RP 0 90 90 1000 0 0 1 4"));
    QVERIFY(!writeFile(m_folder->path(), text("large.nec"), deckOf(cards)).isEmpty());
    QVERIFY(!writeFile(m_folder->path(), text("long.out"), "old output").isEmpty());
    QVERIFY(!writeFile(m_folder->path(), text("long.csv"), "old table").isEmpty());
    for (const char* name : {"dipole.nec", "yagi.nec", "monopole.nec"}) {
        QVERIFY(!copyModel(text(name), m_folder->path()).isEmpty());
    }
    struct Row
    {
        const char* name;
        const char* content;
    };
    for (const Row& row :
         {Row{"all", "node1:1\nnode2:1\nnode3:1\n"}, Row{"others", "node2\nnode3\n"},
          Row{"six", "node1:2\nnode2:1\nnode3:2\nnode2:1\n"},
          Row{"unknown", "node1:1\nno-such-host:1\n"}, Row{"silent", "node1:1\n10.99.0.77:1\n"}}) {
        QVERIFY(!writeFile(m_folder->path(), text(row.name), row.content).isEmpty());
    }
}

void tst_hosts::cleanup()
{
    const QStringList hosts = Hosts::names();
    for (const QString& host : hosts) {
        QVERIFY(Hosts::join(host));
    }
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
}

void tst_hosts::start(QProcess& run, const QStringList& arguments)
{
    Hosts::prepare(run, runkestProgram(), arguments, m_folder->path());
    run.start();
    QVERIFY(run.waitForStarted());
}

QString tst_hosts::path(const QString& name) const
{
    return m_folder->filePath(name);
}

bool tst_hosts::waitForResults(QProcess& run)
{
    return QTest::qWaitFor(
        [this, &run] {
            m_output += run.readAllStandardOutput();
            return m_output.contains("-*-percentage-*-1%");
        },
        30000);
}

void tst_hosts::verifyOldResults() const
{
    QCOMPARE(readFile(path(text("long.out"))), QByteArray("old output"));
    QCOMPARE(readFile(path(text("long.csv"))), QByteArray("old table"));
    QStringList files = QDir(m_folder->path()).entryList({text("long*")}, QDir::Files);
    files.removeAll(text("long.partial")); // what a run that was cut off has kept
    QCOMPARE(files.size(), 3);
}

void tst_hosts::resultIsThatOfOneHost_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QStringList>("arguments");
    const QStringList all(parallel("all").mid(1));
    QTest::newRow("parallel, dipole") << text("dipole") << all;
    QTest::newRow("parallel, yagi") << text("yagi") << all;
    QTest::newRow("parallel, monopole") << text("monopole") << all;
    QTest::newRow("parallel, six processes")
        << text("dipole") << QStringList(parallel("six").mid(1));
    QTest::newRow("parallel, not here") << text("dipole") << QStringList(parallel("others").mid(1));
    QTest::newRow("remote") << text("yagi") << QStringList(remote({text("node2")}).mid(1));
    QTest::newRow("remote with words")
        << text("dipole")
        << QStringList(remote({text("root@node3  port=22 home=") + suiteHome()}).mid(1));
    QTest::newRow("remote and parallel from there")
        << text("yagi")
        << QStringList(remote({text("node2")}).mid(1) + QStringList{text("-np"), text("2"),
                                                                    text("--parallel-authenticate"),
                                                                    text("localonly")});
    QTest::newRow("remote through the parallel runtime")
        << text("dipole") << QStringList(remote({text("node2"), text("--remote-use-mpi")}).mid(1));
}

void tst_hosts::resultIsThatOfOneHost()
{
    QFETCH(QString, model);
    QFETCH(QStringList, arguments);
    const SuiteResult alone = runSuite(runkestProgram(), {model}, m_folder->path());
    QCOMPARE(alone.exitCode, 0);
    QMap<QString, QByteArray> expected;
    for (const char* suffix : {".out", ".csv"}) {
        const QString file = path(model + text(suffix));
        expected.insert(file, readFile(file));
        QVERIFY(!expected.value(file).isEmpty() && QFile::remove(file));
    }

    QProcess run;
    start(run, QStringList(model) + arguments);
    QVERIFY(run.waitForFinished(60000));
    const QByteArray output = run.readAllStandardOutput();
    const QByteArray end = run.readAllStandardError() + output.right(mostShown);
    QVERIFY2(run.exitCode() == 0, end.constData());
    QVERIFY(output.endsWith("-*-total-percentage-*-100%\n"));
    QCOMPARE(output.count("-*-error-*-"), 0);
    for (auto file = expected.cbegin(); file != expected.cend(); ++file) {
        QVERIFY2(readFile(file.key()) == file.value(), qPrintable(file.key()));
        QVERIFY(output.contains("-*-file-*-" + file.key().toUtf8() + '\n'));
    }
    const UnloadedClock clock;
    QVERIFY(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience));
    QVERIFY(clock.elapsed() < stopLimit);
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
}

void tst_hosts::hostThatIsCutOffIsNamed_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("host");
    QTest::newRow("parallel, one that solves") << parallel("all") << text("node3");
    QTest::newRow("parallel, another") << parallel("six") << text("node2");
    QTest::newRow("parallel, the one that deals out") << parallel("others") << text("node2");
    QTest::newRow("remote") << remote({text("node2")}) << text("node2");
    QTest::newRow("remote by the parallel runtime")
        << remote({text("node3"), text("--remote-use-mpi")}) << text("node3");
}

void tst_hosts::hostThatIsCutOffIsNamed()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, host);
    QProcess run;
    start(run, arguments);
    QVERIFY2(waitForResults(run), m_output.constData());

    QVERIFY(Hosts::cutOff(host));
    QVERIFY(run.waitForFinished(cutOffPatience));
    m_output += run.readAllStandardOutput();
    QCOMPARE(run.exitCode(), 1);
    QCOMPARE(m_output.count("-*-error-*-"), 1);
    const QByteArray error = m_output.mid(m_output.indexOf("-*-error-*-"));
    QVERIFY2(error.contains('\'' + host.toLatin1() + '\''), error.constData());
    QVERIFY(!m_output.contains("-*-total-percentage-*-100%"));

    // The host is still off: those on it must see by themselves that they are alone.
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
    verifyOldResults();
}

void tst_hosts::hostIsLeftEmptyWhoeverIsMissedFirst_data()
{
    QTest::addColumn<QStringList>("order");
    QTest::newRow("the process that solves") << QStringList{text("node3"), text("node2")};
    QTest::newRow("the user") << QStringList{text("node2"), text("node3")};
}

// The process that deals out is at node2. Its results are so large that they fill what the network
// keeps of them.
void tst_hosts::hostIsLeftEmptyWhoeverIsMissedFirst()
{
    QFETCH(QStringList, order);
    QStringList arguments = parallel("others");
    arguments.first() = text("large.nec");
    QProcess run;
    start(run, arguments);
    QVERIFY2(waitForResults(run), m_output.constData());

    QVERIFY(Hosts::cutOff(order.constFirst()));
    QTest::qWait(cutOffDistance);
    QVERIFY(Hosts::cutOff(order.constLast()));
    QVERIFY(run.waitForFinished(cutOffPatience));
    QCOMPARE(run.exitCode(), 1);
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
}

void tst_hosts::signalEndsEverything_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("delay");
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        // Less than no delay: when results come.
        for (const int delay : {-1, 20, 250, 500}) {
            QTest::addRow("parallel, signal %d after %d", signal, delay)
                << parallel("six") << signal << delay;
            QTest::addRow("remote, signal %d after %d", signal, delay)
                << remote({text("node2")}) << signal << delay;
        }
    }
}

void tst_hosts::signalEndsEverything()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, signal);
    QFETCH(int, delay);
    QProcess run;
    start(run, arguments);
    if (delay < 0) {
        QVERIFY2(waitForResults(run), m_output.constData());
    } else {
        QTest::qWait(delay); // the moment is what is tried
    }

    const UnloadedClock clock;
    QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
    QVERIFY(run.waitForFinished(cutOffPatience));
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
    QVERIFY2(clock.elapsed() < stopLimit, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
    if (signal != SIGKILL) {
        verifyOldResults();
    }
}

void tst_hosts::hostThatCannotBeReached_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("reason");
    QTest::newRow("parallel, no such name")
        << parallel("unknown") << text("no-such-host") << text("cannot be reached");
    QTest::newRow("parallel, nobody answers")
        << parallel("silent") << text("10.99.0.77") << text("cannot be reached");
    QTest::newRow("remote, no such name")
        << remote({text("no-such-host")}) << text("no-such-host") << text("resolve");
    QTest::newRow("remote, nobody answers")
        << remote({text("10.99.0.77")}) << text("10.99.0.77") << text("ssh");
    QTest::newRow("remote, refused")
        << remote({text("node2 port=9")}) << text("node2") << text("refused");
    QTest::newRow("remote, no such user")
        << remote({text("nobody-there@node2")}) << text("node2") << text("denied");
    QTest::newRow("remote, no installation")
        << remote({text("node2 home=/nowhere")}) << text("node2") << text("/nowhere/bin/runkest");
}

void tst_hosts::hostThatCannotBeReached()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, host);
    QFETCH(QString, reason);
    QProcess run;
    start(run, arguments);
    QVERIFY(run.waitForFinished(cutOffPatience));
    QCOMPARE(run.exitCode(), 1);
    const QByteArray output = run.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 1);
    const QByteArray error = output.mid(output.indexOf("-*-error-*-"));
    QVERIFY2(error.contains('\'' + host.toLatin1() + '\''), error.constData());
    QVERIFY2(error.toLower().contains(reason.toLatin1()), error.constData());
    const UnloadedClock clock;
    QVERIFY(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience));
    QVERIFY(clock.elapsed() < stopLimit);
    verifyOldResults();
}

void tst_hosts::failingEngineIsNamedWithItsHost()
{
    QProcess run;
    Hosts::prepare(run, runkestProgram(), parallel("others"), m_folder->path());
    QProcessEnvironment environment = run.processEnvironment();
    environment.insert(text("KEST_NEC2C"), fakeEngineProgram());
    environment.insert(text("FAKE_ENGINE"), text("fail"));
    run.setProcessEnvironment(environment);
    run.start();
    QVERIFY(run.waitForFinished(cutOffPatience));
    QCOMPARE(run.exitCode(), 1);
    const QByteArray output = run.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 1);
    QVERIFY2(output.contains("the engine ended with code 3, GEOMETRY DATA CARD ERROR"),
             output.constData());
    QVERIFY(output.contains("on the host 'node2'") || output.contains("on the host 'node3'"));
    const UnloadedClock clock;
    QVERIFY(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, cutOffPatience));
    QVERIFY(clock.elapsed() < stopLimit);
    verifyOldResults();
}

QTEST_GUILESS_MAIN(tst_hosts)
#include "tst_hosts.moc"
