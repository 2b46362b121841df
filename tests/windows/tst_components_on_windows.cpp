// SPDX-License-Identifier: MIT
#include "ProgramList.h"

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

private Q_SLOTS:
    void init() { QTRY_COMPARE_WITH_TIMEOUT(ProgramList::count(engine), 0, patience); }

    void dipoleHasTheSameDigitsAsOnLinux_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("plain") << "models";
        QTest::newRow("blank and umlaut") << QStringLiteral("eigene L\u00e4ufe");
        QTest::newRow("beyond the code page") << QStringLiteral("\u6f22\u5b57 \u03a9");
    }

    void dipoleHasTheSameDigitsAsOnLinux()
    {
        QFETCH(QString, folder);
        const QTemporaryDir temporary;
        const QString models = temporary.filePath(folder);
        QVERIFY(QDir().mkpath(models));
        QVERIFY(QFile::copy(QStringLiteral(KEST_SUITE "/models/dipole.nec"),
                            models + QStringLiteral("/dipole.nec")));
        QProcess process;
        start(process, models + QStringLiteral("/dipole.nec"));
        QVERIFY(process.waitForFinished(2 * patience));
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 process.readAllStandardOutput() + process.readAllStandardError());
        const QByteArray expected = contentOf(QStringLiteral(DIPOLE_ON_LINUX));
        QVERIFY(expected.count('\n') > 50);
        QCOMPARE(contentOf(models + QStringLiteral("/dipole.csv")).replace("\r\n", "\n"), expected);
    }

    void engineDoesNotOutliveAComponentThatIsKilled()
    {
        const QTemporaryDir temporary;
        const QString model = temporary.filePath(QStringLiteral("long.nec"));
        QFile file(model);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(longModel) > 0);
        file.close();
        QProcess process;
        start(process, model);
        QTRY_VERIFY_WITH_TIMEOUT(ProgramList::count(engine) > 0, patience);
        process.kill();
        QVERIFY(process.waitForFinished(patience));
        QTRY_COMPARE_WITH_TIMEOUT(ProgramList::count(engine), 0, patience);
    }
};

QTEST_GUILESS_MAIN(tst_components_on_windows)
#include "tst_components_on_windows.moc"
