// SPDX-License-Identifier: MIT
#include "LauncherInstallation.h"

#include <BoxReader.h>
#include <SettingsFolders.h>

#include <common_KestGuiLauncher.h>

#include <QApplication>
#include <QRegularExpression>
#include <QWidget>
#include <QtTest>

#include <memory>

namespace {

int doDeed(const QString& deed)
{
    const FakeApplication service(true);
    if (deed == QLatin1String("null directory")) {
        Launcher::launch(nullptr, Launcher::CadKest, QStringList(), QString());
    } else if (deed == QLatin1String("type 3")) {
        Launcher::getExecutableString(Launcher::AppType(3));
    } else if (deed == QLatin1String("type -1")) {
        Launcher::getExecutableString(Launcher::AppType(-1));
    } else if (deed == QLatin1String("launch of type 3")) {
        Launcher::launch(nullptr, Launcher::AppType(3), QStringList(), QLatin1String(""));
    } else if (deed == QLatin1String("launch")) {
        return Launcher::launch(nullptr, Launcher::CadKest, QStringList(), QLatin1String(""));
    } else if (deed == QLatin1String("launch console")) {
        return Launcher::launchKestConsole(
            nullptr, qEnvironmentVariable("KEST_HOME") + QStringLiteral("/bin/cadkest"),
            QStringList(), QLatin1String(""));
    } else if (deed == QLatin1String("launch Quill")) {
        return Launcher::launchQuill(
            nullptr, qEnvironmentVariable("KEST_HOME") + QStringLiteral("/bin"),
            PlayedProgram::file(QStringLiteral("cadkest")), QLatin1String(""));
    }
    return 0;
}

} // namespace

class tst_common_KestGuiLauncher : public QObject, protected LauncherStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_reader = std::make_unique<BoxReader>(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }

    void knowsThePrograms_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("expected");
        const QString kest = QStringLiteral("/opt/kest");
        const QString percent = QStringLiteral("/opt/%1/%2");
        const QString reference = QStringLiteral("${KEST_TEST_ROOT}/kest");
        // clang-format off
        QTest::newRow("model editor")    << 0 << kest      << QStringLiteral("/opt/kest/bin/cadkest");
        QTest::newRow("results viewer")  << 1 << kest      << QStringLiteral("/opt/kest/bin/postkest");
        QTest::newRow("script editor")   << 2 << kest      << QStringLiteral("/opt/kest/bin/editkest");
        QTest::newRow("unset home")      << 0 << QString() << QStringLiteral("/bin/cadkest");
        QTest::newRow("reference")       << 1 << reference << QStringLiteral("/root/of/all/kest/bin/postkest");
        QTest::newRow("place markers")   << 2 << percent   << QStringLiteral("/opt/%1/%2/bin/editkest");
        // clang-format on
    }

    void knowsThePrograms()
    {
        QFETCH(int, type);
        QFETCH(QString, home);
        QFETCH(QString, expected);
        expected = PlayedProgram::file(expected);
        const Variable root("KEST_TEST_ROOT", QStringLiteral("/root/of/all"));
        const Variable variable("KEST_HOME");
        if (!home.isNull()) {
            qputenv("KEST_HOME", home.toLocal8Bit());
        }
        QCOMPARE(Launcher::getExecutableString(Launcher::AppType(type)), expected);
    }

    void numbersTheApplications()
    {
        QCOMPARE(int(Launcher::CadKest), 0);
        QCOMPARE(int(Launcher::PostKest), 1);
        QCOMPARE(int(Launcher::EditKest), 2);
    }

    void passesArgumentsOn_data()
    {
        QTest::addColumn<bool>("nonInteractive");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("expected");
        const QString batch = QStringLiteral("--non-interactive");
        const QStringList two{QStringLiteral("a b"), QLatin1String("")};
        // clang-format off
        QTest::newRow("person")             << false << two                << two;
        QTest::newRow("person, none")       << false << QStringList()      << QStringList();
        QTest::newRow("nobody")             << true  << two                << (QStringList(two) << batch);
        QTest::newRow("nobody, none")       << true  << QStringList()      << QStringList(batch);
        QTest::newRow("nobody, had it")     << true  << QStringList(batch) << (QStringList{batch, batch});
        QTest::newRow("person, had it")     << false << QStringList(batch) << QStringList(batch);
        // clang-format on
    }

    void passesArgumentsOn()
    {
        QFETCH(bool, nonInteractive);
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, expected);
        const FakeApplication service(nonInteractive);
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the first might be changed
        const QStringList before = arguments;
        QCOMPARE(Launcher::getModifiedArguments(arguments), expected);
        QCOMPARE(arguments, before);
    }

    void launchesTheApplications_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("nonInteractive");
        QTest::newRow("model editor") << 0 << QStringLiteral("cadkest") << false;
        QTest::newRow("results viewer") << 1 << QStringLiteral("postkest") << false;
        QTest::newRow("script editor") << 2 << QStringLiteral("editkest") << false;
        QTest::newRow("model editor in batch") << 0 << QStringLiteral("cadkest") << true;
    }

    void launchesTheApplications()
    {
        QFETCH(int, type);
        QFETCH(QString, name);
        QFETCH(bool, nonInteractive);
        const FakeApplication service(nonInteractive);
        const Installation installation;
        const QString program = installation.program(name);
        QVERIFY(writeProgram(program));
        QVERIFY(Launcher::launch(nullptr, Launcher::AppType(type), twoArguments(),
                                 installation.workingDirectory()));
        QStringList expected{installation.workingDirectory(), QStringLiteral("<a b>"),
                             QStringLiteral("<$(c)>")};
        if (nonInteractive) {
            expected << QStringLiteral("<--non-interactive>");
        }
        QCOMPARE(PlayedProgram::toldBy(program), expected << QStringLiteral("handed down"));
    }

    void startsInTheCallersDirectoryWhenNoneIsNamed()
    {
        const FakeApplication service;
        const Installation installation;
        const QString program = installation.program(QStringLiteral("cadkest"));
        QVERIFY(writeProgram(program));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(installation.searchPath()));
        const bool isLaunched =
            Launcher::launch(nullptr, Launcher::CadKest, QStringList(), QLatin1String(""));
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(isLaunched);
        QCOMPARE(PlayedProgram::toldBy(program),
                 (QStringList{installation.searchPath(), QStringLiteral("handed down")}));
    }

    void launchesWhatOutlivesTheCaller_data()
    {
        QTest::addColumn<QString>("deed");
        QTest::newRow("application") << QStringLiteral("launch");
        QTest::newRow("console program") << QStringLiteral("launch console");
        QTest::newRow("Quill") << QStringLiteral("launch Quill");
    }

    void launchesWhatOutlivesTheCaller()
    {
        QFETCH(QString, deed);
        const Installation installation;
        const QString program = installation.program(QStringLiteral("cadkest"));
        QVERIFY(writeWaitingProgram(program));
        QProcess caller;
        Child::start(caller, deed, installation.path());
        QVERIFY(caller.waitForFinished());
        QCOMPARE(caller.exitCode(), 1); // launched
        QVERIFY(!QFile::exists(PlayedProgram::toldFile(program)));
        QVERIFY(SettingsFolders::write(program + QStringLiteral(".go"), ""));
        QCOMPARE(PlayedProgram::toldBy(program), QStringList(QStringLiteral("late")));
    }

    void tellsWhenTheApplicationDoesNotStart_data()
    {
        QTest::addColumn<int>("obstacle");
        QTest::newRow("missing") << 0;
        QTest::newRow("not executable") << 1;
        QTest::newRow("folder") << 2;
    }

    void tellsWhenTheApplicationDoesNotStart()
    {
        QFETCH(int, obstacle);
        const FakeApplication service;
        const Installation installation;
        QVERIFY(obstacle != 1 ||
                SettingsFolders::write(PlayedProgram::file(installation.cadKest()), "no program"));
        QVERIFY(obstacle != 2 || QDir().mkdir(PlayedProgram::file(installation.cadKest())));
        QWidget parent;
        QVERIFY(!Launcher::launch(&parent, Launcher::CadKest, twoArguments(),
                                  installation.workingDirectory()));
        verifyBox(failureText(PlayedProgram::shown(installation.cadKest()) + QLatin1Char('.')),
                  &parent);
    }

    void tellsThatTheApplicationIsMissingWithoutAHome()
    {
        const FakeApplication service;
        const Variable home("KEST_HOME");
        QVERIFY(!Launcher::launch(nullptr, Launcher::PostKest, QStringList(), QLatin1String("")));
        const QString program = PlayedProgram::shown(QStringLiteral("/bin/postkest"));
        verifyBox(failureText(program + QLatin1Char('.')), nullptr);
    }

    void printsThatTheApplicationDoesNotStartWhenNobodyIsThere()
    {
        const Installation installation;
        QProcess caller;
        Child::start(caller, QStringLiteral("launch"), installation.path());
        QVERIFY(caller.waitForFinished());
        QCOMPARE(caller.exitCode(), 0); // not launched
        QCOMPARE(QString::fromUtf8(unixLines(caller.readAllStandardError())),
                 QStringLiteral("Information\n") +
                     failureText(PlayedProgram::shown(installation.cadKest()) + QLatin1Char('.')) +
                     QLatin1Char('\n'));
    }

    void assertsWhatTheCallerMustGuarantee_data()
    {
        QTest::addColumn<QString>("deed");
        QTest::addColumn<QString>("expected");
        // clang-format off
        QTest::newRow("null directory")   << QStringLiteral("null directory")   << QStringLiteral("!workingDir\\.isNull\\(\\)");
        QTest::newRow("type 3")           << QStringLiteral("type 3")           << QStringLiteral("0");
        QTest::newRow("type -1")          << QStringLiteral("type -1")          << QStringLiteral("0");
        QTest::newRow("launch of type 3") << QStringLiteral("launch of type 3") << QStringLiteral("0");
        // clang-format on
    }

    void assertsWhatTheCallerMustGuarantee()
    {
        QFETCH(QString, deed);
        QFETCH(QString, expected);
        const Installation installation;
        QVERIFY(writeProgram(installation.cadKest()));
        const QString words = Child::lastWords(deed, installation.path());
        const QRegularExpression pattern(
            QStringLiteral("^src/process/common_KestGuiLauncher\\.cpp \\(\\d+\\): "
                           "Assertion failed: ") +
            expected + QStringLiteral("\n$"));
        QVERIFY2(pattern.match(words).hasMatch(), qPrintable(words));
        QVERIFY(!QFile::exists(PlayedProgram::toldFile(installation.cadKest())));
    }
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        return doDeed(Child::deed());
    }
    tst_common_KestGuiLauncher test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_KestGuiLauncher.moc"
