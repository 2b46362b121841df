// SPDX-License-Identifier: MIT
#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QtTest>

#include <csignal>
#include <memory>

// However a parallel run ends, no process of it is left.
class tst_runkest_parallel_stop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void signalStopsEverything_data();
    void signalStopsEverything();
    void runtimeLeavesNothing_data();
    void runtimeLeavesNothing();

private:
    QString path(const QString& name) const { return m_runs->path(name); }

    std::unique_ptr<MarkedRuns> m_runs;
};

namespace {

constexpr int patience = 20000; // ms

const QStringList& arguments()
{
    static const QStringList result = {text("dipole"), text("-np"), text("3"),
                                       text("--parallel-authenticate"), text("localonly")};
    return result;
}

} // namespace

void tst_runkest_parallel_stop::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!copyModel(text("dipole.nec"), m_runs->folder()).isEmpty());
}

// Whatever a test does, nothing is left of it.
void tst_runkest_parallel_stop::cleanup()
{
    const UnloadedClock clock;
    QVERIFY2(m_runs->waitUntilNothingIsLeft(), qPrintable(m_runs->left().join(QLatin1Char(' '))));
    QVERIFY(clock.elapsed() < 5000);
}

void tst_runkest_parallel_stop::signalStopsEverything_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("delay");
    const bool isFull = qEnvironmentVariableIsSet("KEST_FULL_TESTS");
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        QTest::addRow("signal %d, engines refuse", signal) << signal << text("stubborn") << 700;
        for (int delay = 0; delay < 700; delay += isFull ? 20 : 130) {
            QTest::addRow("signal %d after %d", signal, delay) << signal << text("slow") << delay;
        }
    }
}

void tst_runkest_parallel_stop::signalStopsEverything()
{
    QFETCH(int, signal);
    QFETCH(QString, part);
    QFETCH(int, delay);
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.out"), "old output").isEmpty());
    QProcess process;
    process.setWorkingDirectory(m_runs->folder());
    process.setProcessEnvironment(m_runs->fakeEnvironment(part));
    process.start(runkestProgram(), arguments());
    QVERIFY(process.waitForStarted());
    QTest::qWait(delay); // the moment is what is tried

    const UnloadedClock clock;
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(patience));
    QVERIFY(m_runs->waitUntilNothingIsLeft());
    QVERIFY2(clock.elapsed() < 2500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
    QVERIFY(!process.readAllStandardOutput().contains("-*-total-percentage-*-100%"));
}

// A runtime that ends, or is killed, before the processes that it has started in sessions of their
// own.
void tst_runkest_parallel_stop::runtimeLeavesNothing_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<bool>("isStopped");
    QTest::newRow("refuses to stop") << QByteArray("trap '' TERM\nsleep 120\n") << true;
    QTest::newRow("stops") << QByteArray("exec sleep 120\n") << true;
    QTest::newRow("ends by itself") << QByteArray("exit 0\n") << false;
}

void tst_runkest_parallel_stop::runtimeLeavesNothing()
{
    QFETCH(QByteArray, end);
    QFETCH(bool, isStopped);
    const QString runtime =
        writeFile(m_runs->folder(), text("runtime"),
                  "#!/bin/sh\nsetsid sh -c 'touch started; exec sleep 120' >/dev/null 2>&1 &\n"
                  "while [ ! -e started ]; do sleep 0.01; done\n" +
                      end);
    QVERIFY(QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment own = m_runs->environment();
    own.insert(text("KEST_MPIEXEC"), runtime);
    QProcess process;
    process.setWorkingDirectory(m_runs->folder());
    process.setProcessEnvironment(own);
    process.start(runkestProgram(), arguments());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path(text("started"))), patience);
    if (isStopped) {
        process.terminate();
    }
    QVERIFY(process.state() == QProcess::NotRunning || process.waitForFinished(patience));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QVERIFY(m_runs->waitUntilNothingIsLeft());
}

QTEST_GUILESS_MAIN(tst_runkest_parallel_stop)
#include "tst_runkest_parallel_stop.moc"
