// SPDX-License-Identifier: MIT
#include "BatchStage.h"

#include <QRegularExpression>

// The command line of kestdesk: what it answers, and what it refuses.
class tst_kestdesk_command_line : public QObject, private BatchStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

    void helpAndVersionGoToStandardOutput_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QByteArray>("part");
        QTest::newRow("help") << "--help" << QByteArray("--component <name>");
        QTest::newRow("short help") << "-h" << QByteArray("0 all models valid");
        QTest::newRow("version") << "--version" << QByteArray("kestdesk " KEST_VERSION "\n");
    }

    void helpAndVersionGoToStandardOutput()
    {
        QFETCH(QString, option);
        QFETCH(QByteArray, part);
        const Result result = run({option});
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.output.contains(part), result.output.constData());
        QVERIFY(result.errors.isEmpty());
    }

    void wrongCommandLineIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("reason");
        // clang-format off
        QTest::newRow("box as option")     << QStringList{text("--parallel"), text("a.nec")} << QByteArray("--parallel needs --non-interactive");
        QTest::newRow("no model")          << QStringList{text("--non-interactive")}       << QByteArray("no model given");
        QTest::newRow("unknown option")    << QStringList{text("--colour"), text("m.nec")} << QByteArray("colour");
        QTest::newRow("component missing") << QStringList{text("--non-interactive"), text("m.nec"), text("--component")} << QByteArray("component");
        QTest::newRow("component a path")  << QStringList{text("--non-interactive"), text("--component"), text("../sh"), text("m.nec")} << QByteArray("\"../sh\" is no name of a component");
        QTest::newRow("component empty")   << QStringList{text("--non-interactive"), text("--component="), text("m.nec")} << QByteArray("is no name of a component");
        // clang-format on
    }

    void wrongCommandLineIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, reason);
        const Result result = run(arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.output.isEmpty());
        QVERIFY2(result.errors.startsWith("kestdesk: "), result.errors.constData());
        QVERIFY2(result.errors.contains(reason), result.errors.constData());
        QVERIFY(result.errors.contains("kestdesk --help"));
    }

    void windowNeedsADisplay()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, there is always a display");
#endif
        QStringList withoutDisplay = environment();
        const QStringList names = {text("DISPLAY="), text("WAYLAND_DISPLAY="),
                                   text("QT_QPA_PLATFORM=")};
        for (const QString& name : names) {
            withoutDisplay = withoutDisplay.filter(
                QRegularExpression(text("^(?!%1)").arg(QRegularExpression::escape(name))));
        }
        QProcess process;
        process.setEnvironment(withoutDisplay);
        process.start(text(KESTDESK), {model(text("model"), {})});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("there is no display for the window"));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_command_line)
#include "tst_kestdesk_command_line.moc"
