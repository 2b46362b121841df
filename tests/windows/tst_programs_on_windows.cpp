// SPDX-License-Identifier: MIT
#include "ProgramList.h"

#include <Desk.h>

#include <ConsoleBreak.h>

#include <QRegularExpression>

namespace {

constexpr int patience = 30000; // milliseconds

const QString runkest = QStringLiteral("runkest.exe");
const QString engine = QStringLiteral("nec2c.exe");

// A sweep that takes the engine much longer than a test.
QByteArray longModel()
{
    return "CE\nGW 1 301 0 0 -0.25 0 0 0.25 0.0001\nGE 0\nFR 0 9000 0 0 250 0.01\n"
           "EX 0 1 151 0 1 0\nXQ\nEN\n";
}

} // namespace

// The programs together, on the sample installation. The runs of other tests must not meet these.
class tst_programs_on_windows : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    void startLongRun(QProcess& process) const
    {
        writeFile(m_desk->path("models/long.nec"), longModel());
        ConsoleBreak::prepare(process);
        m_desk->start(process, {text("--non-interactive"), text("long.nec")});
        QTRY_VERIFY_WITH_TIMEOUT(ProgramList::count(engine) > 0, patience);
        QVERIFY(ProgramList::count(runkest) > 0);
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_desk->set("KEST_HOME", text(KEST_SUITE));
        QTRY_COMPARE_WITH_TIMEOUT(ProgramList::count(engine), 0, patience);
    }
    void cleanup() { m_desk.reset(); }

    void dipoleHasTheSameDigitsAsOnLinux()
    {
        QVERIFY(
            QFile::copy(text(KEST_SUITE "/models/dipole.nec"), m_desk->path("models/dipole.nec")));
        const Desk::Result result = m_desk->run({text("--non-interactive"), text("dipole.nec")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        const QByteArray expected = contentOf(text(DIPOLE_ON_LINUX));
        QVERIFY(expected.count('\n') > 50);
        QCOMPARE(contentOf(m_desk->path("models/dipole.csv")).replace("\r\n", "\n"), expected);
    }

    void pathsMayHaveBlanksUmlautsAndOtherScripts()
    {
        const QString folder = m_desk->path(text("models/L\xc3\xa4ufe \xe6\xbc\xa2\xe5\xad\x97"));
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), folder + text("/\xc3\xbc.nec")));
        const Desk::Result result =
            m_desk->run({text("--non-interactive"), folder + text("/\xc3\xbc.nec")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(contentOf(folder + text("/\xc3\xbc.csv")).replace("\r\n", "\n"),
                 contentOf(text(DIPOLE_ON_LINUX)));
    }

    void nothingOutlivesKestdeskThatIsKilled()
    {
        QProcess process;
        startLongRun(process);
        process.kill();
        QVERIFY(process.waitForFinished(patience));
        QTRY_COMPARE_WITH_TIMEOUT(ProgramList::count(engine), 0, patience);
        QTRY_COMPARE_WITH_TIMEOUT(ProgramList::count(runkest), 0, patience);
    }
};

QTEST_GUILESS_MAIN(tst_programs_on_windows)
#include "tst_programs_on_windows.moc"
