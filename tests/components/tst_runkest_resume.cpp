// SPDX-License-Identifier: MIT
#include "BrokenSweep.h"

#include <TestRandom.h>
#include <Text.h>

#include <QDir>
#include <QtTest>

#include <csignal>
#include <memory>

// A sweep that does not reach its end keeps what it has solved, and another run computes the rest:
// the results are those of an unbroken run, byte for byte.
class tst_runkest_resume : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void stoppedSweepIsResumed_data();
    void stoppedSweepIsResumed();
    void anyMomentOfAKillIsGood();
    void onlyMissingFrequenciesAreComputed();
    void laterFrequenciesAreKeptBeforeEarlierOnes();
    void failedSweepIsResumed();

private:
    std::unique_ptr<BrokenSweep> m_sweep;
};

namespace {

QStringList ranks(const char* count)
{
    return {text("-np"), text(count), text("--parallel-authenticate"), text("localonly")};
}

} // namespace

void tst_runkest_resume::init()
{
    m_sweep = std::make_unique<BrokenSweep>();
}

void tst_runkest_resume::cleanup()
{
    QVERIFY(m_sweep->waitForEnd());
}

void tst_runkest_resume::stoppedSweepIsResumed_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("cause");
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<QStringList>("second");
    const QStringList serial = {text("-np"), text("1")};
    const QStringList several = {text("-np"), text("4")};
    const auto add = [](const char* name, int signal, const char* cause, const QStringList& first,
                        const QStringList& second) {
        QTest::newRow(name) << signal << text(cause) << first << second;
    };
    add("SIGTERM, serial", SIGTERM, "SIGTERM", serial, serial);
    add("SIGINT, several engines", SIGINT, "SIGINT", several, several);
    add("SIGHUP, then more engines", SIGHUP, "SIGHUP", serial, several);
    add("SIGTERM, ranks", SIGTERM, "SIGTERM", ranks("3"), ranks("3"));
    add("SIGTERM, ranks, then one process", SIGTERM, "SIGTERM", ranks("2"), serial);
    add("SIGINT, one process, then ranks", SIGINT, "SIGINT", serial, ranks("2"));
}

void tst_runkest_resume::stoppedSweepIsResumed()
{
    QFETCH(int, signal);
    QFETCH(QString, cause);
    QFETCH(QStringList, first);
    QFETCH(QStringList, second);
    QProcess process;
    m_sweep->start(process, first, m_sweep->slowEnvironment(0.1));
    QVERIFY(m_sweep->waitForRows(3));
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 128 + signal);
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY(!output.contains(text("-*-error-*-")));
    QCOMPARE(output.count(text("-*-notice-*-NOTE 301: stopped by ") + cause), 1);
    const int rows = m_sweep->keptRows();
    QVERIFY(rows < BrokenSweep::frequencies);
    const QString notice =
        text("-*-file-*-%1\n-*-notice-*-NOTE 302: %2 of 12 frequencies are kept in 'm.partial', "
             "--resume computes the rest\n")
            .arg(m_sweep->path(text("m.partial")))
            .arg(rows);
    QVERIFY2(output.endsWith(notice), qPrintable(output));
    QVERIFY(!QFile::exists(m_sweep->path(text("m.csv"))));

    const SuiteResult rest = m_sweep->resume(second);
    QCOMPARE(rest.exitCode, 0);
    QVERIFY(rest.hasText(text("NOTE 303: %1 of 12 frequencies are taken over").arg(rows)));
    QVERIFY(rest.hasText(text("Solving %1 frequencies").arg(BrokenSweep::frequencies - rows)));
    QCOMPARE(rest.bodies(text("total-percentage")).constLast(), text("100%"));
    QCOMPARE(m_sweep->difference(), QString());
}

// Killed again and again, each time in what the runs before have left.
void tst_runkest_resume::anyMomentOfAKillIsGood()
{
    QRandomGenerator random = TestRandom::anew();
    const QProcessEnvironment slow = m_sweep->slowEnvironment(0.01);
    constexpr int kills = 50;
    int resumed = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess process;
        const QStringList serial = {text("-np"), QString::number(1 + random.bounded(3))};
        const int before = m_sweep->keptRows();
        m_sweep->start(process, QStringList(text("--resume")) + serial, slow);
        // A random moment is what this is about.
        process.waitForFinished(static_cast<int>(random.bounded(120)));
        process.kill();
        QVERIFY(process.state() == QProcess::NotRunning || process.waitForFinished());
        QVERIFY(m_sweep->waitForEnd());
        if (QFile::exists(m_sweep->path(text("m.csv")))) {
            QCOMPARE(m_sweep->difference(), QString());
            QVERIFY(QFile::remove(m_sweep->path(text("m.csv"))));
            QVERIFY(QFile::remove(m_sweep->path(text("m.out"))));
            ++resumed;
        } else {
            QVERIFY(m_sweep->keptRows() >= before);
            resumed += before > 0 ? 1 : 0;
        }
    }
    QVERIFY(resumed > 0);
    QCOMPARE(m_sweep->resume().exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

// The engine of the second run knows the missing frequencies only.
void tst_runkest_resume::onlyMissingFrequenciesAreComputed()
{
    QVERIFY(m_sweep->keepSome());
    const int rows = m_sweep->keptRows();
    const QString log = m_sweep->path(text("log"));
    const QProcessEnvironment environment = m_sweep->scriptEnvironment(
        "grep ^FR \"$2\" >> '" + log.toUtf8() + "'\nexec nec2c \"$@\"\n");
    const QByteArray kept = m_sweep->partial();
    QCOMPARE(m_sweep->run({text("--resume")}, environment).exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
    const QList<QByteArray> solved = readFile(log).trimmed().split('\n');
    QCOMPARE(solved.size(), BrokenSweep::frequencies - rows);
    for (const QByteArray& card : solved) {
        QVERIFY(!kept.contains('\n' + card.split(' ').value(5) + ','));
    }
}

// The first frequency takes long; what is there meanwhile survives.
void tst_runkest_resume::laterFrequenciesAreKeptBeforeEarlierOnes()
{
    const QProcessEnvironment environment = m_sweep->scriptEnvironment(
        "if [ \"$2\" = f1.nec ]; then exec sleep 60; fi\nexec nec2c \"$@\"\n");
    QProcess process;
    m_sweep->start(process, {text("-np"), text("2")}, environment);
    QVERIFY(m_sweep->waitForRows(BrokenSweep::frequencies - 1));
    process.kill();
    QVERIFY(process.waitForFinished());
    QVERIFY(m_sweep->waitForEnd());
    QVERIFY(m_sweep->resume().hasText(text("Solving 1 frequencies")));
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_resume::failedSweepIsResumed()
{
    const QProcessEnvironment environment =
        m_sweep->scriptEnvironment("if [ \"$2\" = f7.nec ]; then exit 3; fi\nexec nec2c \"$@\"\n");
    const SuiteResult failed = m_sweep->run({text("-np"), text("1")}, environment);
    QCOMPARE(failed.exitCode, 1);
    QCOMPARE(failed.bodies(text("error")).size(), 1);
    QCOMPARE(failed.lines.last(),
             text("-*-notice-*-NOTE 302: 6 of 12 frequencies are kept in 'm.partial', --resume "
                  "computes the rest"));
    QCOMPARE(m_sweep->resume().exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

QTEST_GUILESS_MAIN(tst_runkest_resume)
#include "tst_runkest_resume.moc"
