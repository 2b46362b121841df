// SPDX-License-Identifier: MIT
#include <ProcessTable.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int patience = 30000; // milliseconds

const QString engine = QStringLiteral("nec2c.exe");

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A sweep that takes the engine much longer than a test.
const char* const longModel = "CE\nGW 1 301 0 0 -0.25 0 0 0.25 0.0001\nGE 0\n"
                              "FR 0 9000 0 0 250 0.01\nEX 0 1 151 0 1 0\nXQ\nEN\n";

} // namespace

// The solver component of the sample installation, without an application.
class tst_components_on_windows : public QObject
{
    Q_OBJECT

private:
    static void start(QProcess& process, const QString& model)
    {
        process.start(QStringLiteral(KEST_SUITE "/bin/runkest.exe"), {model});
        QVERIFY(process.waitForStarted(patience));
    }

    static void write(const QString& fileName, const QByteArray& content)
    {
        QFile file(fileName);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    /// Sets the table of results, with line feeds as line ends.
    static void compute(const QString& model, QByteArray& table)
    {
        QProcess process;
        start(process, model);
        QVERIFY(process.waitForFinished(5 * patience));
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 QByteArray(process.readAllStandardOutput() + process.readAllStandardError())
                     .constData());
        table = contentOf(model.chopped(4) + QStringLiteral(".csv")).replace("\r\n", "\n");
        QVERIFY(!table.isEmpty());
    }

    // With the first three of the dipole's frequencies, in a new folder.
    static void computeIn(const QString& folder)
    {
        QVERIFY(QDir().mkpath(folder));
        const QString model = folder + QStringLiteral("/dipole.nec");
        QByteArray cards = contentOf(QStringLiteral(KEST_SUITE "/models/dipole.nec"));
        QVERIFY(cards.contains("FR 0 51 "));
        write(model, cards.replace("FR 0 51 ", "FR 0 3 "));
        QByteArray table;
        compute(model, table);
        QCOMPARE(table.count('\n'), 4);
        QVERIFY2(contentOf(QStringLiteral(DIPOLE_ON_LINUX)).startsWith(table), table.constData());
    }

private Q_SLOTS:
    void init() { QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::count(engine), 0, patience); }

    void dipoleHasTheSameDigitsAsOnLinux()
    {
        const QTemporaryDir temporary;
        const QString model = temporary.filePath(QStringLiteral("dipole.nec"));
        QVERIFY(QFile::copy(QStringLiteral(KEST_SUITE "/models/dipole.nec"), model));
        QByteArray table;
        compute(model, table);
        QCOMPARE(table, contentOf(QStringLiteral(DIPOLE_ON_LINUX)));
    }

    void pathsMayHaveBlanksAndAllLetters_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("blank and umlaut") << QStringLiteral("eigene L\u00e4ufe");
        QTest::newRow("beyond the code page") << QStringLiteral("\u6f22\u5b57 \u03a9");
    }

    void pathsMayHaveBlanksAndAllLetters()
    {
        QFETCH(QString, folder);
        const QTemporaryDir temporary;
        computeIn(temporary.filePath(folder));
    }

    // The component is started in another folder: Wine starts none on a share.
    void pathsMayBeThoseOfShares()
    {
        const QString share = QDir::fromNativeSeparators(qEnvironmentVariable("KEST_TEST_SHARE"));
        if (share.isEmpty()) {
            QSKIP("KEST_TEST_SHARE names no share");
        }
        QVERIFY(share.startsWith(QStringLiteral("//")));
        computeIn(share + QStringLiteral("/eigene L\u00e4ufe"));
    }

    void optimiserFindsTheSameLengthAsOnLinux()
    {
        const QTemporaryDir temporary;
        const QString model = temporary.filePath(QStringLiteral("tune.nec"));
        QVERIFY(QFile::copy(QStringLiteral(KEST_SUITE "/models/tune.nec"), model));
        QProcess process;
        process.start(QStringLiteral(KEST_SUITE "/bin/optkest.exe"), {model});
        QVERIFY(process.waitForFinished(5 * patience));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(process.exitCode() == 0 &&
                     output.contains("-*-variable-*-LENGTH = 0.474124562\r\n"),
                 output.constData());
    }

    void parallelRunsAreRefusedBeforeAnythingIsComputed_data()
    {
        QTest::addColumn<QStringList>("options");
        const auto add = [](const char* line) {
            QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' '));
        };
        add("-np 2 --machines-file machines");
        add("-np 2 --parallel-authenticate localonly");
        add("--parallel-authenticate sspi");
    }

    void parallelRunsAreRefusedBeforeAnythingIsComputed()
    {
        QFETCH(QStringList, options);
        const QTemporaryDir temporary;
        QVERIFY(QFile::copy(QStringLiteral(KEST_SUITE "/models/dipole.nec"),
                            temporary.filePath(QStringLiteral("dipole.nec"))));
        write(temporary.filePath(QStringLiteral("machines")), "localhost:2\n");
        QProcess process;
        process.setWorkingDirectory(temporary.path());
        process.start(QStringLiteral(KEST_SUITE "/bin/runkest.exe"),
                      QStringList(QStringLiteral("dipole")) + options);
        QVERIFY(process.waitForFinished(patience));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(process.exitCode() == 1 &&
                     output.contains("parallel and farmed runs are not available on Windows"),
                 output.constData());
        QCOMPARE(QDir(temporary.path()).entryList(QDir::Files).size(), 2);
    }

    // Several times, because it matters at which moment of the engine's start the component ends.
    void engineDoesNotOutliveAComponentThatIsKilled()
    {
        constexpr int attempts = 10;
        const QTemporaryDir temporary;
        const QString model = temporary.filePath(QStringLiteral("long.nec"));
        write(model, longModel);
        for (int attempt = 0; attempt < attempts; ++attempt) {
            QProcess process;
            start(process, model);
            while (ProcessTable::count(engine) == 0) {
                QVERIFY(!process.waitForFinished(1));
            }
            QThread::usleep(static_cast<unsigned long>(400 * attempt));
            process.kill();
            QVERIFY(process.waitForFinished(patience));
            QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::count(engine), 0, patience / 3);
        }
    }
};

QTEST_GUILESS_MAIN(tst_components_on_windows)
#include "tst_components_on_windows.moc"
