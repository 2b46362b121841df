// SPDX-License-Identifier: MIT
#include <Desk.h>
#include <ProcessTable.h>

#include <ConsoleBreak.h>
#include <StartFolder.h>

#include <algorithm>

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

    void runDipoleIn(const QString& folder) const
    {
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), folder + text("/\xc3\xbc.nec")));
        const Desk::Result result =
            m_desk->run({text("--non-interactive"), folder + text("/\xc3\xbc.nec")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(contentOf(folder + text("/\xc3\xbc.csv")).replace("\r\n", "\n"),
                 contentOf(text(DIPOLE_ON_LINUX)));
    }

    // A path of that length below the models, of folders with names that each system takes.
    QString folderOfLength(int length) const
    {
        constexpr int longestName = 100;
        QString path = m_desk->path("models");
        while (path.size() < length) {
            const int rest = length - path.size() - 1;
            const int name = rest <= longestName ? rest : std::min(longestName, rest - 2);
            path += QLatin1Char('/') + QString(name, QLatin1Char('x'));
        }
        return path;
    }

    void startLongRun(QProcess& process) const
    {
        writeFile(m_desk->path("models/long.nec"), longModel());
        ConsoleBreak::prepare(process);
        m_desk->start(process, {text("--non-interactive"), text("long.nec")});
        QTRY_VERIFY_WITH_TIMEOUT(ProcessTable::count(engine) > 0, patience);
        QVERIFY(ProcessTable::count(runkest) > 0);
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_desk->set("KEST_HOME", text(KEST_SUITE));
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::count(engine), 0, patience);
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
        runDipoleIn(m_desk->path(text("models/L\xc3\xa4ufe \xe6\xbc\xa2\xe5\xad\x97")));
    }

    void longestFolderOfAModel() { runDipoleIn(folderOfLength(StartFolder::longestPath())); }

    void folderInWhichNoProgramStartsIsRefusedWithTheReason()
    {
        const int length = StartFolder::longestPath() + 1;
        const QString folder = folderOfLength(length);
        QVERIFY(QDir().mkpath(folder));
        const QString model = folder + text("/m.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), model));
        const Desk::Result result = m_desk->run({text("--non-interactive"), model});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.errors,
                 text("kestdesk: the model %1 cannot be run: the path of its folder has %2 "
                      "characters, and this system starts no program in a folder whose path has "
                      "more than %3; move the model to a shorter path\n")
                     .arg(model)
                     .arg(length)
                     .arg(StartFolder::longestPath()));
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList(text("m.nec")));
    }

    void nothingOutlivesKestdeskThatIsKilled()
    {
        QProcess process;
        startLongRun(process);
        process.kill();
        QVERIFY(process.waitForFinished(patience));
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::count(engine), 0, patience);
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::count(runkest), 0, patience);
    }
};

QTEST_GUILESS_MAIN(tst_programs_on_windows)
#include "tst_programs_on_windows.moc"
