// SPDX-License-Identifier: MIT
#include "LauncherInstallation.h"

#include <BoxReader.h>
#include <SettingsFolders.h>

#include <common_KestGuiLauncher.h>

#include <QWidget>
#include <QtTest>

#include <memory>

namespace {

const char* const quillFailureText = "Process could not be started. Please ensure\n"
                                     "that Quill is fully installed.";

} // namespace

class tst_common_KestGuiLauncher_console : public QObject, protected LauncherStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_reader = std::make_unique<BoxReader>(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }
    void startsConsoleProgramsThemselvesWithoutATerminal_data()
    {
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("hasTerminal");
        QTest::newRow("no display") << QByteArray() << QByteArray() << true;
        QTest::newRow("no display, no terminal") << QByteArray() << QByteArray() << false;
        QTest::newRow("no terminal") << QByteArray("DISPLAY") << QByteArray(":7") << false;
        QTest::newRow("empty display") << QByteArray("DISPLAY") << QByteArray("") << true;
        QTest::newRow("empty Wayland") << QByteArray("WAYLAND_DISPLAY") << QByteArray("") << true;
    }

    void startsConsoleProgramsThemselvesWithoutATerminal()
    {
        QFETCH(QByteArray, display);
        QFETCH(QByteArray, value);
        QFETCH(bool, hasTerminal);
        const FakeApplication service(true);
        const Installation installation;
        const Variable searchPath("PATH", installation.searchPath());
        const QString program = installation.program(QStringLiteral("runkest"));
        QVERIFY(writeProgram(program));
        QVERIFY(!hasTerminal || writeProgram(installation.terminal()));
        if (!display.isEmpty()) {
            qputenv(display.constData(), value); // unset again by the installation
        }
        QVERIFY(Launcher::launchKestConsole(nullptr, program, twoArguments(),
                                            installation.workingDirectory()));
        QCOMPARE(PlayedProgram::toldBy(program),
                 (QStringList{installation.workingDirectory(), QStringLiteral("<a b>"),
                              QStringLiteral("<$(c)>"), QStringLiteral("handed down")}));
        QVERIFY(!QFile::exists(PlayedProgram::toldFile(installation.terminal())));
    }

    void opensConsoleProgramsInTheTerminal_data()
    {
        QTest::addColumn<QByteArray>("display");
        QTest::newRow("X") << QByteArray("DISPLAY");
        QTest::newRow("Wayland") << QByteArray("WAYLAND_DISPLAY");
    }

    void opensConsoleProgramsInTheTerminal()
    {
        QFETCH(QByteArray, display);
        const FakeApplication service(true);
        const Installation installation;
        const Variable searchPath("PATH", installation.searchPath());
        const QString program = installation.program(QStringLiteral("runkest"));
        QVERIFY(writeProgram(program));
        QVERIFY(writeProgram(installation.terminal()));
        qputenv(display.constData(), ":7");
        QVERIFY(Launcher::launchKestConsole(nullptr, program, twoArguments(),
                                            installation.workingDirectory()));
        QCOMPARE(PlayedProgram::toldBy(installation.terminal()),
                 (QStringList{installation.workingDirectory(), QStringLiteral("<-e>"),
                              QStringLiteral("<%1>").arg(program), QStringLiteral("<a b>"),
                              QStringLiteral("<$(c)>"), QStringLiteral("handed down")}));
        QVERIFY(!QFile::exists(PlayedProgram::toldFile(program))); // that terminal starts nothing
    }

    void tellsWhenTheConsoleProgramDoesNotStart_data()
    {
        QTest::addColumn<bool>("hasTerminal");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("shown");
        // clang-format off
        QTest::newRow("no terminal")   << false << twoArguments() << QStringLiteral(" a b $(c)");
        QTest::newRow("terminal")      << true  << twoArguments() << QStringLiteral(" a b $(c)");
        QTest::newRow("no arguments")  << false << QStringList()  << QStringLiteral(" ");
        QTest::newRow("place markers") << false << QStringList(QStringLiteral("%1%2")) << QStringLiteral(" %1%2");
        // clang-format on
    }

    void tellsWhenTheConsoleProgramDoesNotStart()
    {
        QFETCH(bool, hasTerminal);
        QFETCH(QStringList, arguments);
        QFETCH(QString, shown);
        const FakeApplication service;
        const Installation installation;
        const Variable searchPath("PATH", installation.searchPath());
        if (hasTerminal) {
            QVERIFY(writeProgram(installation.terminal()));
            qputenv("DISPLAY", ":7");
        }
        const QString program = installation.program(QStringLiteral("%1 runkest"));
        QWidget parent;
        QVERIFY(!Launcher::launchKestConsole(&parent, program, arguments,
                                             installation.workingDirectory()));
        verifyBox(failureText(QDir::toNativeSeparators(program) + shown), &parent);
        QVERIFY(!QFile::exists(PlayedProgram::toldFile(installation.terminal())));
    }

    void launchesQuill_data()
    {
        QTest::addColumn<bool>("nonInteractive");
        QTest::newRow("person") << false;
        QTest::newRow("nobody") << true;
    }

    void launchesQuill()
    {
        QFETCH(bool, nonInteractive);
        const FakeApplication service(nonInteractive);
        const Installation installation;
        const QString name = QStringLiteral("quill 5");
        const QString program = installation.program(name);
        QVERIFY(writeProgram(program));
        QVERIFY(Launcher::launchQuill(nullptr, QFileInfo(program).path(), name,
                                      installation.workingDirectory()));
        QCOMPARE(PlayedProgram::toldBy(program),
                 (QStringList{installation.workingDirectory(), QStringLiteral("handed down")}));
    }

    void tellsWhenQuillDoesNotStart_data()
    {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("missing") << false;
        QTest::newRow("not executable") << true;
    }

    void tellsWhenQuillDoesNotStart()
    {
        QFETCH(bool, isThere);
        const FakeApplication service;
        const Installation installation;
        const QString name = QStringLiteral("quill");
        QVERIFY(!isThere || SettingsFolders::write(installation.program(name), "no program"));
        QWidget parent;
        QVERIFY(!Launcher::launchQuill(&parent, installation.path() + QStringLiteral("/bin"), name,
                                       installation.workingDirectory()));
        verifyBox(QLatin1String(quillFailureText), &parent);
    }
};

QTEST_MAIN(tst_common_KestGuiLauncher_console)
#include "tst_common_KestGuiLauncher_console.moc"
