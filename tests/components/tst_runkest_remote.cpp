// SPDX-License-Identifier: MIT
#include "Frame.h"
#include "MarkedRuns.h"
#include "RemoteHost.h"
#include "RemoteParts.h"
#include "SuiteRun.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QtTest>

#include <csignal>
#include <memory>

// Runs on another host, which a program in place of ssh plays: it runs the command here.
class tst_runkest_remote : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void resultIsThatOfALocalRun_data();
    void resultIsThatOfALocalRun();
    void sshGetsCheckedWordsOnly();
    void badHostNeverReachesSsh_data();
    void badHostNeverReachesSsh();
    void errorsThereAreErrorsHere_data();
    void errorsThereAreErrorsHere();
    void brokenConnection_data();
    void brokenConnection();
    void lostConnectionEndsTheRun_data();
    void lostConnectionEndsTheRun();
    void signalStopsBothEnds_data();
    void signalStopsBothEnds();
    void missingModelIsToldHere();

private:
    QProcessEnvironment environment(const QByteArray& script,
                                    const QString& part = QString()) const;
    SuiteResult run(const QStringList& arguments, const QProcessEnvironment& environment) const;
    QString path(const QString& name) const { return m_runs->path(name); }

    std::unique_ptr<MarkedRuns> m_runs;
};

namespace {

constexpr int patience = 20000; // ms

} // namespace

void tst_runkest_remote::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!copyModel(text("dipole.nec"), m_runs->folder()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.out"), "old output").isEmpty());
}

void tst_runkest_remote::cleanup()
{
    const UnloadedClock clock;
    QVERIFY2(m_runs->waitUntilNothingIsLeft(), qPrintable(m_runs->left().join(QLatin1Char(' '))));
    QVERIFY(clock.elapsed() < 5000);
}

QProcessEnvironment tst_runkest_remote::environment(const QByteArray& script,
                                                    const QString& part) const
{
    return remoteEnvironment(
        *m_runs, script, part.isEmpty() ? m_runs->environment() : m_runs->fakeEnvironment(part));
}

SuiteResult tst_runkest_remote::run(const QStringList& arguments,
                                    const QProcessEnvironment& environment) const
{
    return runSuite(runkestProgram(), QStringList(text("dipole")) + arguments, m_runs->folder(),
                    environment);
}

void tst_runkest_remote::resultIsThatOfALocalRun_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("dipole") << text("dipole.nec") << QStringList();
    QTest::newRow("suffix left out") << text("yagi") << QStringList();
    QTest::newRow("name with blanks and quotes") << text("my 'own' \"model\".nec") << QStringList();
    QTest::newRow("parallel there")
        << text("dipole.nec")
        << QStringList{text("-np"), text("2"), text("--parallel-authenticate"), text("sspi")};
    QTest::newRow("machines file and options of others")
        << text("dipole.nec")
        << QStringList{text("--machines-file"), text("machines"), text("--prekest-options"),
                       text("--print-variables-to-out"), text("--print-variables")};
    QTest::newRow("check only") << text("dipole.nec")
                                << QStringList{text("--kest-options"), text("--check-only")};
}

void tst_runkest_remote::resultIsThatOfALocalRun()
{
    QFETCH(QString, model);
    QFETCH(QStringList, options);
    QVERIFY(!copyModel(text("yagi.nec"), m_runs->folder()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("machines"), "localhost:2\n").isEmpty());
    if (!QFile::exists(path(model)) && model.endsWith(text(".nec"))) {
        QVERIFY(QFile::copy(path(text("yagi.nec")), path(model)));
    }
    const SuiteResult alone =
        runSuite(runkestProgram(), QStringList(model) + options, m_runs->folder());
    QCOMPARE(alone.exitCode, 0);
    QMap<QString, QByteArray> expected;
    const QStringList files = alone.bodies(text("file"));
    for (const QString& file : files) {
        expected.insert(file, readFile(file));
        QVERIFY(QFile::remove(file));
    }

    const QProcessEnvironment good = environment(goodSsh());
    const SuiteResult result = runSuite(
        runkestProgram(), QStringList{model, text("--remote-host"), text("node7")} + options,
        m_runs->folder(), good);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines, alone.lines);
    for (auto file = expected.cbegin(); file != expected.cend(); ++file) {
        QVERIFY2(readFile(file.key()) == file.value(), qPrintable(file.key()));
    }
}

void tst_runkest_remote::sshGetsCheckedWordsOnly()
{
    const SuiteResult result =
        run({text("--remote-host"), text("someone@node7  port=2222   home=") + suiteHome()},
            environment(goodSsh()));
    QCOMPARE(result.exitCode, 0);
    const QList<QByteArray> words = readFile(path(text("ssh.log"))).trimmed().split('\n');
    QVERIFY(words.contains("BatchMode=yes"));
    const QByteArray command =
        "exec '" + QDir::cleanPath(suiteHome()).toUtf8() + "/bin/runkest' --remote-session";
    const QList<QByteArray> tail = {"-p", "2222", "-l", "someone", "--", "node7", command};
    QCOMPARE(words.mid(words.size() - tail.size()), tail);
}

void tst_runkest_remote::badHostNeverReachesSsh_data()
{
    QTest::addColumn<QString>("words");
    for (const char* words : {"node;touch hacked",
                              "$(touch)",
                              "`x`",
                              "node|x",
                              "a@-oProxyCommand=x",
                              "a b",
                              "node\"",
                              "node'",
                              "node7 -oProxyCommand=x",
                              "node7 port=0",
                              "node7 port=99999",
                              "node7 port=2x",
                              "node7 port=",
                              "node7 user=-l",
                              "node7 user=a;b",
                              "node7 home=relative",
                              "node7 shell=x",
                              "node7 word",
                              "user@",
                              "@node7",
                              "node7:22",
                              "cafe:22",
                              "a@b@c",
                              "node7 home="}) {
        QTest::newRow(words) << text(words);
    }
}

void tst_runkest_remote::badHostNeverReachesSsh()
{
    QFETCH(QString, words);
    const SuiteResult result = run({text("--remote-host"), words}, environment(goodSsh()));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(text("ERROR 2001: ")));
    QVERIFY(errors.first().contains(text("--remote-host")));
    QVERIFY(!QFile::exists(path(text("ssh.log"))));
}

void tst_runkest_remote::errorsThereAreErrorsHere_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("reason");
    QTest::newRow("crash") << text("crash")
                           << text("ERROR 2602: dipole.nec: at 250 MHz the engine crashed");
    QTest::newRow("silent") << text("silent")
                            << text(
                                   "ERROR 2602: dipole.nec: at 250 MHz the engine wrote no output");
}

void tst_runkest_remote::errorsThereAreErrorsHere()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    const SuiteResult result = run({text("--remote-host"), text("node7"), text("-np"), text("1")},
                                   environment(goodSsh(), part));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")), QStringList(reason));
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
}

void tst_runkest_remote::brokenConnection_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("reason");
    QTest::newRow("refused") << QByteArray(
                                    "echo 'ssh: connect to host node7: Connection refused' >&2\n"
                                    "exit 255\n")
                             << text("gives no connection to the installation (code 255), ssh; "
                                     "connect to host node7; Connection refused, ssh must reach it "
                                     "by this name and log in with a key");
    QTest::newRow("silent from the beginning of the command, then ends")
        << QByteArray("exit 0\n") << text("gives no connection to the installation (code 0)");
    QTest::newRow("another program there") << QByteArray("echo Welcome to this machine\nsleep 60\n")
                                           << text("runs no such component, it says 'Welcome to");
    const suite::Frame hello = suite::Frame::of(suite::Frame::Type::Hello, qint32(99));
    QByteArray octal;
    const QByteArray bytes = hello.bytes();
    for (const char byte : bytes) {
        octal += '\\' + QByteArray::number(static_cast<uchar>(byte), 8).rightJustified(3, '0');
    }
    QTest::newRow("another version") << "printf '" + octal + "'\nsleep 60\n"
                                     << text("has another version of the installation");
    const QByteArray there = QFile::encodeName(QDir::cleanPath(suiteHome()) + text("/bin/runkest"));
    // A program that is gone as soon as it runs cannot start itself again.
    QTest::newRow("the run cannot be started there")
        << "cp '" + there +
               "' \"$TMPDIR/gone\" && exec 3<\"$TMPDIR/gone\" && rm \"$TMPDIR/gone\"\n" +
               "exec /proc/self/fd/3 --remote-session\n"
        << text("lost the run, '");
    QTest::newRow("no temporary folder there")
        << "TMPDIR=/nowhere exec '" + there + "' --remote-session\n"
        << text(
               "cannot keep the model, the temporary folder '/nowhere' cannot be used, it does not "
               "exist (TMPDIR names it)");
    QTest::newRow("no program of that name")
        << QByteArray("exec /nowhere/runkest\n") << text("home=FOLDER");
}

void tst_runkest_remote::brokenConnection()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, reason);
    const SuiteResult result = run({text("--remote-host"), text("node7")}, environment(script));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(text("ERROR 2605: dipole.nec: the host 'node7' ")),
             qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
}

void tst_runkest_remote::lostConnectionEndsTheRun_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("reason");
    QTest::newRow("ssh dies") << SIGKILL << text("is not connected any more");
    QTest::newRow("the host is silent") << SIGSTOP << text("does not answer");
}

// The session at the other end is not hit.
void tst_runkest_remote::lostConnectionEndsTheRun()
{
    QFETCH(int, signal);
    QFETCH(QString, reason);
    QProcess process;
    process.setWorkingDirectory(m_runs->folder());
    process.setProcessEnvironment(environment(goodSsh(), text("slow")));
    process.start(runkestProgram(), {text("dipole"), text("--remote-host"), text("node7")});
    QByteArray output;
    QVERIFY(QTest::qWaitFor(
        [&] {
            output += process.readAllStandardOutput();
            return output.contains("-*-percentage-*-3%");
        },
        patience));
    const QList<QByteArray> relays = readFile(path(text("ssh.log.ids"))).trimmed().split('\n');
    QCOMPARE(relays.size(), 2);
    for (const QByteArray& id : relays) {
        QCOMPARE(::kill(static_cast<pid_t>(id.toInt()), signal), 0);
    }
    QVERIFY(process.waitForFinished(patience));
    output += process.readAllStandardOutput();
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(output.count("-*-error-*-"), 1);
    QVERIFY2(output.contains("ERROR 2605: dipole.nec: the host 'node7' " + reason.toUtf8()),
             output.constData());
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
}

void tst_runkest_remote::signalStopsBothEnds_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("delay");
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        for (const int delay : {10, 60, 150, 400}) {
            QTest::addRow("signal %d after %d", signal, delay) << signal << delay;
        }
    }
}

void tst_runkest_remote::signalStopsBothEnds()
{
    QFETCH(int, signal);
    QFETCH(int, delay);
    QProcess process;
    process.setWorkingDirectory(m_runs->folder());
    process.setProcessEnvironment(environment(goodSsh(), text("stubborn")));
    process.start(runkestProgram(), {text("dipole"), text("--remote-host"), text("node7")});
    QVERIFY(process.waitForStarted());
    QTest::qWait(delay); // the moment is what is tried
    const UnloadedClock clock;
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(patience));
    QVERIFY(m_runs->waitUntilNothingIsLeft());
    QVERIFY2(clock.elapsed() < 2500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
}

void tst_runkest_remote::missingModelIsToldHere()
{
    const SuiteResult result =
        runSuite(runkestProgram(), {text("missing"), text("--remote-host"), text("node7")},
                 m_runs->folder(), environment(goodSsh()));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(text("ERROR 2011: ")));
    QVERIFY(!QFile::exists(path(text("ssh.log"))));
}

QTEST_GUILESS_MAIN(tst_runkest_remote)
#include "tst_runkest_remote.moc"
