#include <BoxReader.h>
#include <SettingsFolders.h>

#include <common_KestGuiLauncher.h>

#include <QApplication>
#include <QRegularExpression>
#include <QWidget>
#include <QtTest>

#include <memory>

namespace {

using Launcher = common_KestGuiLauncher;

/// Writes down its working directory and its arguments, in a file beside it of its own name with
/// ".told" added, with "end" as the last line.
const char* const tellingScript = "#!/bin/sh\n"
                                  "{\n"
                                  "pwd -P\n"
                                  "for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done\n"
                                  "printf '%s\\n' \"${KEST_TEST_PASSED-unset}\" end\n"
                                  "} > \"$0.told\"\n";

/// The same, but waits for a file of its own name with ".go" added first.
const char* const waitingScript = "#!/bin/sh\n"
                                  "while ! [ -e \"$0.go\" ]; do /bin/sleep 0.02; done\n"
                                  "{ echo late; echo end; } > \"$0.told\"\n";

bool writeProgram(const QString& path, const char* script = tellingScript)
{
    return SettingsFolders::write(path, script) &&
           QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QString fileOf(const QString& program)
{
    return program + QStringLiteral(".told");
}

/// What the program has written down, without the last line; waits for it.
QStringList toldBy(const QString& program)
{
    const QString path = fileOf(program);
    const auto isThere = [&path] {
        return QFile::exists(path) && SettingsFolders::read(path).endsWith("end\n");
    };
    if (!QTest::qWaitFor(isThere, 20000)) {
        return {QStringLiteral("nothing")};
    }
    const QString told = QString::fromUtf8(SettingsFolders::read(path));
    QStringList lines = told.split(QLatin1Char('\n'));
    lines.removeLast();
    lines.removeLast();
    return lines;
}

/// An installation to which KEST_HOME points, without a display.
class Installation
{
public:
    Installation()
        : m_home("KEST_HOME", m_folder.path())
        , m_display("DISPLAY")
        , m_wayland("WAYLAND_DISPLAY")
        , m_passed("KEST_TEST_PASSED", QStringLiteral("handed down"))
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("bin"));
        QDir(m_folder.path()).mkdir(QStringLiteral("work"));
        QDir(m_folder.path()).mkdir(QStringLiteral("path"));
    }

    QString path() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }
    QString program(const QString& name) const { return path() + QStringLiteral("/bin/") + name; }
    QString cadKest() const { return m_folder.path() + QStringLiteral("/bin/cadkest"); }
    QString workingDirectory() const { return path() + QStringLiteral("/work"); }
    QString searchPath() const { return path() + QStringLiteral("/path"); }
    QString terminal() const { return searchPath() + QStringLiteral("/x-terminal-emulator"); }

private:
    QTemporaryDir m_folder;
    Variable m_home;
    Variable m_display;
    Variable m_wayland;
    Variable m_passed;
};

QString failureText(const QString& what)
{
    return QStringLiteral("Process could not be started with the following arguments:\n") + what +
           QStringLiteral("\nPlease ensure that Morlan Kest is fully installed, and that\n"
                          "the KEST_HOME environment variable is set correctly.");
}

const char* const quillFailureText = "Process could not be started. Please ensure\n"
                                     "that Quill is fully installed.";

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
        return Launcher::launchQuill(nullptr,
                                     qEnvironmentVariable("KEST_HOME") + QStringLiteral("/bin"),
                                     QStringLiteral("cadkest"), QLatin1String(""));
    }
    return 0;
}

} // namespace

class tst_common_KestGuiLauncher : public QObject
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
#ifdef Q_OS_WIN
        expected += QStringLiteral(".exe");
#endif
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
        QCOMPARE(toldBy(program), expected << QStringLiteral("handed down"));
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
        QCOMPARE(toldBy(program),
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
        QVERIFY(writeProgram(program, waitingScript));
        QProcess caller;
        Child::start(caller, deed, installation.path());
        QVERIFY(caller.waitForFinished());
        QCOMPARE(caller.exitCode(), 1); // launched
        QVERIFY(!QFile::exists(fileOf(program)));
        QVERIFY(SettingsFolders::write(program + QStringLiteral(".go"), ""));
        QCOMPARE(toldBy(program), QStringList(QStringLiteral("late")));
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
        QVERIFY(obstacle != 1 || SettingsFolders::write(installation.cadKest(), "no program"));
        QVERIFY(obstacle != 2 || QDir().mkdir(installation.cadKest()));
        QWidget parent;
        QVERIFY(!Launcher::launch(&parent, Launcher::CadKest, twoArguments(),
                                  installation.workingDirectory()));
        verifyBox(failureText(installation.cadKest() + QLatin1Char('.')), &parent);
    }

    void tellsThatTheApplicationIsMissingWithoutAHome()
    {
        const FakeApplication service;
        const Variable home("KEST_HOME");
        QVERIFY(!Launcher::launch(nullptr, Launcher::PostKest, QStringList(), QLatin1String("")));
#ifndef Q_OS_WIN
        verifyBox(failureText(QStringLiteral("/bin/postkest.")), nullptr);
#else
        verifyBox(failureText(QStringLiteral("\\bin\\postkest.exe.")), nullptr);
#endif
    }

    void printsThatTheApplicationDoesNotStartWhenNobodyIsThere()
    {
        const Installation installation;
        QProcess caller;
        Child::start(caller, QStringLiteral("launch"), installation.path());
        QVERIFY(caller.waitForFinished());
        QCOMPARE(caller.exitCode(), 0); // not launched
        QCOMPARE(QString::fromUtf8(caller.readAllStandardError()),
                 QStringLiteral("Information\n") +
                     failureText(installation.cadKest() + QLatin1Char('.')) + QLatin1Char('\n'));
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
        QVERIFY(!QFile::exists(fileOf(installation.cadKest())));
    }

#ifndef Q_OS_WIN
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
        QCOMPARE(toldBy(program),
                 (QStringList{installation.workingDirectory(), QStringLiteral("<a b>"),
                              QStringLiteral("<$(c)>"), QStringLiteral("handed down")}));
        QVERIFY(!QFile::exists(fileOf(installation.terminal())));
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
        QCOMPARE(toldBy(installation.terminal()),
                 (QStringList{installation.workingDirectory(), QStringLiteral("<-e>"),
                              QStringLiteral("<%1>").arg(program), QStringLiteral("<a b>"),
                              QStringLiteral("<$(c)>"), QStringLiteral("handed down")}));
        QVERIFY(!QFile::exists(fileOf(program))); // that terminal starts nothing
    }
#endif

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
        QVERIFY(!QFile::exists(fileOf(installation.terminal())));
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
        QCOMPARE(toldBy(program),
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

private:
    static QStringList twoArguments()
    {
        return {QStringLiteral("a b"), QStringLiteral("$(c)")};
    }

    void verifyBox(const QString& text, QWidget* parent)
    {
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].title, QStringLiteral("Information"));
        QCOMPARE(boxes[0].text, text);
        QCOMPARE(boxes[0].details, QString());
        QCOMPARE(boxes[0].icon, QMessageBox::Information);
        QCOMPARE(boxes[0].parent, parent);
    }

    std::unique_ptr<BoxReader> m_reader;
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
