// SPDX-License-Identifier: MIT
#include "BrokenSweep.h"
#include "RemoteParts.h"

#include <Text.h>

#include <QtTest>

#include <csignal>
#include <memory>

// A sweep on another host that does not reach its end: what was solved there is kept here. A
// program in place of ssh plays the host.
class tst_remote_resume : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void brokenRunIsResumed_data();
    void brokenRunIsResumed();
    void otherModelIsRefusedHere();

private:
    std::unique_ptr<BrokenSweep> m_sweep;
};

void tst_remote_resume::init()
{
    m_sweep = std::make_unique<BrokenSweep>();
}

void tst_remote_resume::brokenRunIsResumed_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("isHere");
    QTest::addColumn<QString>("host");
    QTest::newRow("stopped here, resumed there") << SIGTERM << true << text("node7");
    QTest::newRow("stopped here, resumed here") << SIGTERM << true << QString();
    QTest::newRow("killed here, resumed there") << SIGKILL << true << text("node7");
    QTest::newRow("connection lost, resumed there") << SIGKILL << false << text("node7");
}

// The results come over the connection one by one, and are kept here.
void tst_remote_resume::brokenRunIsResumed()
{
    QFETCH(int, signal);
    QFETCH(bool, isHere);
    QFETCH(QString, host);
    QProcess process;
    m_sweep->start(process, {text("--remote-host"), text("node7")},
                   remoteEnvironment(*m_sweep, goodSsh(), m_sweep->slowEnvironment(0.1)));
    QVERIFY(m_sweep->waitForRows(4));
    const QByteArray ssh =
        readFile(m_sweep->path(text("ssh.log.ids"))).trimmed().split('\n').last();
    QCOMPARE(::kill(isHere ? static_cast<pid_t>(process.processId()) : ssh.toInt(), signal), 0);
    QVERIFY(process.waitForFinished());
    const bool isReported = process.readAllStandardOutput().contains(" of 12 frequencies are kept");
    QCOMPARE(isReported, !isHere || signal == SIGTERM);
    QVERIFY(m_sweep->waitUntilNothingIsLeft());
    const int kept = m_sweep->keptRows();
    QVERIFY(kept >= 4 && kept < BrokenSweep::frequencies);

    const QStringList place =
        host.isEmpty() ? QStringList() : QStringList{text("--remote-host"), host};
    const SuiteResult rest =
        m_sweep->run(place + QStringList(text("--resume")),
                     remoteEnvironment(*m_sweep, goodSsh(), m_sweep->environment()));
    QCOMPARE(rest.exitCode, 0);
    QVERIFY(rest.hasText(text("NOTE 303: %1 of 12 frequencies are taken over").arg(kept)));
    QCOMPARE(m_sweep->difference(), QString());
}

// Nothing goes to the host.
void tst_remote_resume::otherModelIsRefusedHere()
{
    QVERIFY(m_sweep->keepSome());
    const QByteArray kept = m_sweep->partial();
    QVERIFY(!writeFile(m_sweep->folder(), text("m.nec"),
                       BrokenSweep::model().replace("0.25 0.001", "0.25 0.002"))
                 .isEmpty());
    const SuiteResult refused =
        m_sweep->run({text("--resume"), text("--remote-host"), text("node7")},
                     remoteEnvironment(*m_sweep, goodSsh(), m_sweep->environment()));
    QCOMPARE(refused.exitCode, 1);
    QVERIFY(refused.hasText(text("ERROR 2702: m.nec: 'm.partial' cannot be resumed from")));
    QVERIFY(!QFile::exists(m_sweep->path(text("ssh.log"))));
    QCOMPARE(m_sweep->partial(), kept);
}

QTEST_GUILESS_MAIN(tst_remote_resume)
#include "tst_remote_resume.moc"
