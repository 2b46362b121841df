// SPDX-License-Identifier: MIT
#include "Hosts.h"
#include "SuiteRun.h"

#include <Text.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

// Farmed optimisations over three hosts, and runs that kestdesk has started there.
class tst_hosts_farm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void farmFindsWhatOneMachineFinds();
    void lostHostEndsTheFarm();
    void stopOfTheDeskEndsEverything_data();
    void stopOfTheDeskEndsEverything();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr int patience = 60000; // ms
constexpr int endLimit = 10000; // ms

// The value that a tuned model has got: "SY LENGTH=0.474".
double tunedLength(const QByteArray& deck)
{
    static const QRegularExpression pattern(text(R"(^SY\s+LENGTH\s*=\s*([0-9.]+))"),
                                            QRegularExpression::MultilineOption);
    return pattern.match(QString::fromLatin1(deck)).captured(1).toDouble();
}

} // namespace

void tst_hosts_farm::initTestCase()
{
    if (!Hosts::areThere()) {
        QTest::qSkip("to be started by with-hosts", __FILE__, __LINE__);
    }
}

void tst_hosts_farm::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(!copyModel(text("tune.nec"), m_folder->path()).isEmpty());
    QVERIFY(!writeFile(m_folder->path(), text("machines.kest"), "node1:1\nnode2:1\nnode3:1\n")
                 .isEmpty());
    QStringList cards = dipoleCards();
    cards.replaceInStrings(text("FR 0 3 0 0 290 5"), text("FR 0 10000 0 0 200 0.02"));
    QVERIFY(!writeFile(m_folder->path(), text("long.nec"), deckOf(cards)).isEmpty());
}

void tst_hosts_farm::cleanup()
{
    const QStringList hosts = Hosts::names();
    for (const QString& host : hosts) {
        QVERIFY(Hosts::join(host));
    }
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, endLimit),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
}

void tst_hosts_farm::farmFindsWhatOneMachineFinds()
{
    const SuiteResult alone = runSuite(optkestProgram(), {text("tune")}, m_folder->path());
    QCOMPARE(alone.exitCode, 0);
    const double length = tunedLength(readFile(path(text("tune_opt.nec"))));
    QVERIFY(length > 0.4 && length < 0.6);

    QProcess farm;
    Hosts::prepare(farm, optkestProgram(),
                   {text("tune"), text("-r"), text("-np"), text("all"), text("--machines-file"),
                    text("machines.kest")},
                   m_folder->path());
    farm.start();
    QVERIFY(farm.waitForFinished(patience));
    QCOMPARE(farm.exitCode(), 0);
    const double farmed = tunedLength(readFile(path(text("tune_opt.nec"))));
    QVERIFY2(qAbs(farmed / length - 1) < 5e-4, qPrintable(QString::number(farmed, 'g', 8)));
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
}

void tst_hosts_farm::lostHostEndsTheFarm()
{
    QProcess farm;
    Hosts::prepare(
        farm, optkestProgram(),
        {text("tune"), text("-np"), text("all"), text("--machines-file"), text("machines.kest")},
        m_folder->path());
    QVERIFY(Hosts::cutOff(text("node3")));
    farm.start();
    QVERIFY(farm.waitForFinished(patience));
    QCOMPARE(farm.exitCode(), 1);
    const QByteArray output = farm.readAllStandardOutput();
    QVERIFY2(output.contains("-*-error-*-"), output.constData());
    QVERIFY2(output.contains("node3"), output.constData());
    QVERIFY(!QFile::exists(path(text("tune_opt.nec"))));
}

void tst_hosts_farm::stopOfTheDeskEndsEverything_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("interrupted") << SIGINT;
    QTest::newRow("terminated") << SIGTERM;
}

void tst_hosts_farm::stopOfTheDeskEndsEverything()
{
    QFETCH(int, signal);
    QProcess desk;
    Hosts::prepare(desk, text("/usr/bin/env"),
                   {text("KEST_HOME=") + suiteHome(), text("KEST_USER_HOME=") + m_folder->path(),
                    text(KESTDESK), text("--non-interactive"), text("--parallel"),
                    text("long.nec")},
                   m_folder->path());
    desk.start();
    QVERIFY(desk.waitForStarted());
    QByteArray output;
    const auto isSolving = [&] {
        output += desk.readAllStandardOutput();
        const QStringList processes = Hosts::allProcesses();
        return processes.filter(text("sweepkest")).size() >= 3;
    };
    QVERIFY2(QTest::qWaitFor(isSolving, patience),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n')) + QString::fromUtf8(output)));
    QCOMPARE(::kill(static_cast<pid_t>(desk.processId()), signal), 0);
    QVERIFY(desk.waitForFinished(endLimit));
    QCOMPARE(desk.exitCode(), 130);
    QVERIFY2(QTest::qWaitFor([] { return Hosts::allProcesses().isEmpty(); }, endLimit),
             qPrintable(Hosts::allProcesses().join(QLatin1Char('\n'))));
    QCOMPARE(QDir(m_folder->path()).entryList({text("gui_tmp_machfile_*")}), QStringList());
    QCOMPARE(Hosts::temporaryFiles().join(QLatin1Char(' ')), QString());
}

QTEST_GUILESS_MAIN(tst_hosts_farm)
#include "tst_hosts_farm.moc"
