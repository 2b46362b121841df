#include "WindowStage.h"

#include <BoxReader.h>

#include <QMenuBar>
#include <QProcess>

#include <csignal>

namespace {

constexpr int longTime = 60000; // ms, on a machine with much to do

// Writes down, in a file beside it of its own name with ".told" added, its folder and its
// arguments.
const char* const tellingScript = "#!/bin/sh\n"
                                  "{ pwd -P; for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done; } "
                                  "> \"$0.new\"\n"
                                  "mv \"$0.new\" \"$0.told\"\n";

// The same, and does not end.
const char* const stayingScript = "#!/bin/sh\n"
                                  "echo here > \"$0.new\" && mv \"$0.new\" \"$0.told\"\n"
                                  "while :; do sleep 1; done\n";

// A component to which the model says in words of the shell what to do.
const char* const obeyingScript = "#!/bin/sh\n"
                                  "sh \"$1\"\n";

// A terminal emulator: called with "-e" before a command.
const char* const terminalScript = "#!/bin/sh\n"
                                   "[ \"$1\" = -e ] && shift && exec \"$@\"\n";

// A shell that writes down where it is and which solver it finds.
const char* const shellScript = "#!/bin/sh\n"
                                "{ pwd -P; command -v runkest; ls /dev/null; } > \"$0.new\"\n"
                                "mv \"$0.new\" \"$0.told\"\n";

const QByteArray table =
    QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n300,72,1,1.4\n");
const QByteArray done = QByteArrayLiteral("echo '-*-total-percentage-*-100%'\n");

QByteArray reporting(const char* file)
{
    return QByteArray("echo '-*-file-*-") + file + "'\n";
}

void writeProgram(const QString& path, const char* script)
{
    QFile::remove(path); // it may be a link
    writeFile(path, script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// What the program has written down; waits for it.
QStringList toldBy(const QString& program)
{
    const QString path = program + text(".told");
    if (!QTest::qWaitFor([&path] { return QFile::exists(path); }, longTime)) {
        return {text("nothing")};
    }
    QStringList lines = QString::fromUtf8(contentOf(path)).split(QLatin1Char('\n'));
    lines.removeLast();
    QFile::remove(path);
    return lines;
}

QString failureText(const QString& program)
{
    return text("Process could not be started with the following arguments:\n") + program +
           text(".\nPlease ensure that Morlan Kest is fully installed, and that\n"
                "the KEST_HOME environment variable is set correctly.");
}

} // namespace

class tst_applications : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowStage> m_stage;

    QString models() const { return QFileInfo(m_stage->desk().path("models")).canonicalFilePath(); }

    QString file(const char* name) const { return m_stage->desk().path("models/") + text(name); }

    QString between(const QString& path) const
    {
        return QLatin1Char('<') + path + QLatin1Char('>');
    }

    bool isEnabled(const char* action) const { return m_stage->find<QAction>(action)->isEnabled(); }

    void obey() const { writeProgram(m_stage->program("runkest"), obeyingScript); }

    // Runs a model to its end.
    void run(const char* name, const QByteArray& words) const
    {
        const int row = m_stage->runCount();
        m_stage->run(m_stage->model(name, words));
        QTRY_VERIFY_WITH_TIMEOUT(
            m_stage->runCount() > row && m_stage->state(row) != text("running"), longTime);
    }

    // Two runs with a table each.
    void runTwo() const
    {
        obey();
        writeFile(file("a.csv"), table);
        writeFile(file("b b.csv"), table);
        run("a.nec", reporting("a.csv") + done);
        run("b b.nec", reporting("b b.csv") + done);
        QCOMPARE(m_stage->state(0), text("valid"));
        QCOMPARE(m_stage->state(1), text("valid"));
    }

    bool isNothingLaunched() const
    {
        return QDir(m_stage->desk().path("home/bin")).entryList({text("*.told")}).isEmpty();
    }

private Q_SLOTS:
    // The window ends the program itself. Qt's own wish to do so when the last window has gone may
    // come late, and would close the next test's message boxes.
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        for (const char* const name : {"cadkest", "postkest", "editkest"}) {
            writeProgram(m_stage->program(name), tellingScript);
        }
        m_stage->open();
    }

    void cleanup()
    {
        m_stage->close();
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), longTime);
        m_stage.reset();
    }

    void modelIsOpenedInTheApplications_data()
    {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<int>("key");
        QTest::addColumn<QByteArray>("model");
        QTest::newRow("viewer") << QByteArray("cadkest") << int(Qt::Key_F6) << QByteArray("m.nec");
        QTest::newRow("editor") << QByteArray("editkest") << int(Qt::Key_F7) << QByteArray("m.nec");
        QTest::newRow("odd name") << QByteArray("cadkest") << int(Qt::Key_F6)
                                  << QByteArray("-an  \"odd\" $model.nec");
    }

    void modelIsOpenedInTheApplications()
    {
        QFETCH(QByteArray, program);
        QFETCH(int, key);
        QFETCH(QByteArray, model);
        const QString path = m_stage->model(model.constData(), "valid");
        m_stage->typeModel(path);
        m_stage->press(Qt::Key(key));
        QCOMPARE(toldBy(m_stage->program(program.constData())),
                 QStringList({models(), between(path)}));
        QVERIFY(isNothingLaunched());
        QCOMPARE(m_stage->outcomeText(),
                 text("Opening %1 in %2").arg(text(model.constData()), text(program.constData())));
    }

    void pathMayBeRelative()
    {
        m_stage->model("m.nec", "valid");
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(models()));
        m_stage->typeModel(text("m.nec"));
        m_stage->press(Qt::Key_F6);
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(toldBy(m_stage->program("cadkest")),
                 QStringList({models(), between(models() + text("/m.nec"))}));
    }

    void withoutAModelOrARunThereIsNothingToLaunch()
    {
        for (const char* const name :
             {"viewModelAction", "editModelAction", "showResultsAction", "showAllResultsAction"}) {
            QVERIFY2(!isEnabled(name), name);
        }
        QVERIFY(!m_stage->find<QPushButton>("showResultsButton")->isEnabled());
        for (const Qt::Key key : {Qt::Key_F6, Qt::Key_F7, Qt::Key_F8}) {
            m_stage->press(key);
        }
        m_stage->press(Qt::Key_F8, Qt::ShiftModifier);
        QVERIFY(!QTest::qWaitFor([this] { return !isNothingLaunched(); }, 300));

        m_stage->typeModel(text("m.nec"));
        QVERIFY(isEnabled("viewModelAction"));
        QVERIFY(isEnabled("editModelAction"));
        QVERIFY(!isEnabled("showResultsAction"));
    }

    void modelThatCannotBeReadIsToldOf_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("folder");
        QTest::newRow("gone, viewer") << int(Qt::Key_F6) << false;
        QTest::newRow("gone, editor") << int(Qt::Key_F7) << false;
        QTest::newRow("folder") << int(Qt::Key_F6) << true;
    }

    void modelThatCannotBeReadIsToldOf()
    {
        QFETCH(int, key);
        QFETCH(bool, folder);
        m_stage->typeModel(folder ? models() : file("gone.nec"));
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->press(Qt::Key(key));
        QCOMPARE(reader.texts, QStringList(text("There is no model that can be read at\n%1.")
                                               .arg(folder ? models() : file("gone.nec"))));
        QVERIFY(isNothingLaunched());
        QCOMPARE(m_stage->outcomeText(), QString());
    }

    void applicationThatDoesNotStartIsToldOf_data()
    {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("isThere");
        QTest::newRow("viewer missing") << QByteArray("cadkest") << int(Qt::Key_F6) << false;
        QTest::newRow("editor missing") << QByteArray("editkest") << int(Qt::Key_F7) << false;
        QTest::newRow("results missing") << QByteArray("postkest") << int(Qt::Key_F8) << false;
        QTest::newRow("no program") << QByteArray("postkest") << int(Qt::Key_F8) << true;
    }

    void applicationThatDoesNotStartIsToldOf()
    {
        QFETCH(QByteArray, program);
        QFETCH(int, key);
        QFETCH(bool, isThere);
        runTwo();
        const QString outcome = m_stage->outcomeText();
        QFile::remove(m_stage->program(program.constData()));
        if (isThere) {
            writeFile(m_stage->program(program.constData()), "no program");
        }
        BoxReader reader;
        m_stage->press(Qt::Key(key));
        const QVector<BoxReader::Box> boxes = reader.take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes.first().title, text("Information"));
        QCOMPARE(boxes.first().text, failureText(m_stage->program(program.constData())));
        QCOMPARE(boxes.first().parent, &m_stage->window());
        QCOMPARE(m_stage->outcomeText(), outcome);
    }

    void resultsAreOfferedOnceTheyAreThere_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QStringList>("shown");
        const QByteArray writing = "cp table.csv 'm m.csv'\n";
        const QByteArray whole = writing + reporting("m m.csv");
        const QStringList none;
        const QStringList one(text("m m.csv"));
        // clang-format off
        QTest::newRow("table")             << whole + done << text("valid") << one;
        QTest::newRow("fault at the end")  << whole + "exit 3" << text("fault, exit code 3") << one;
        QTest::newRow("stopped")           << whole + "exit 143" << text("stopped") << one;
        QTest::newRow("not told of")       << writing + done << text("valid") << none;
        QTest::newRow("not written")       << reporting("m m.csv") + done << text("valid") << none;
        QTest::newRow("folder")            << "mkdir 'm m.csv'\n" + reporting("m m.csv") + done << text("valid") << none;
        QTest::newRow("other files")       << "cp table.csv m.out\n" + reporting("m.out") + done << text("valid") << none;
        QTest::newRow("no frequencies")    << "echo run,value > steps.csv\n" + reporting("steps.csv") + done << text("valid") << none;
        QTest::newRow("empty")             << ": > m.csv\n" + reporting("m.csv") + done << text("valid") << none;
        QTest::newRow("told of early")     << reporting("m m.csv") + writing + done << text("valid") << one;
        QTest::newRow("told of by stderr") << writing + "echo '-*-file-*-m m.csv' >&2\n" + done << text("valid") << one;
        QTest::newRow("told of twice")     << whole + reporting("./m m.csv") + done << text("valid") << one;
        QTest::newRow("absolute")          << writing + "echo \"-*-file-*-$PWD/m m.csv\"\n" + done << text("valid") << one;
        QTest::newRow("capitals")          << "cp table.csv M.CSV\n" + reporting("M.CSV") + done << text("valid") << QStringList(text("M.CSV"));
        QTest::newRow("two")               << whole + reporting("table.csv") + done << text("valid") << QStringList({text("m m.csv"), text("table.csv")});
        // clang-format on
    }

    void resultsAreOfferedOnceTheyAreThere()
    {
        QFETCH(QByteArray, words);
        QFETCH(QString, state);
        QFETCH(QStringList, shown);
        obey();
        writeFile(file("table.csv"), table);
        run("a model.nec", words);
        QCOMPARE(m_stage->state(), state);
        QCOMPARE(isEnabled("showResultsAction"), !shown.isEmpty());
        QCOMPARE(isEnabled("showAllResultsAction"), !shown.isEmpty());
        QCOMPARE(m_stage->find<QPushButton>("showResultsButton")->isEnabled(), !shown.isEmpty());
        if (!shown.isEmpty()) {
            m_stage->press(Qt::Key_F8);
            QStringList expected(models());
            for (const QString& name : qAsConst(shown)) {
                expected.append(between(m_stage->desk().path("models/") + name));
            }
            QCOMPARE(toldBy(m_stage->program("postkest")), expected);
        }
    }

    void resultsAreOfferedAtTheEndOfARun()
    {
        obey();
        writeFile(file("m.csv"), table);
        m_stage->run(m_stage->model("m.nec", reporting("m.csv") +
                                                 "echo '-*-total-percentage-*-50%'\n"
                                                 "while ! [ -e go ]; do sleep 0.02; done\n" +
                                                 done));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QVERIFY(!isEnabled("showResultsAction"));
        writeFile(file("go"), "");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(isEnabled("showResultsAction"));
    }

    void resultsAreThoseOfTheSelectedRun()
    {
        runTwo();
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("b b.csv"))}));
        QCOMPARE(m_stage->outcomeText(), text("Opening b b.csv in postkest"));
        auto* const list = m_stage->find<QTableView>("runList");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Up);
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("a.csv"))}));

        QTest::keyClick(list, Qt::Key_B); // the model's first letter
        m_stage->press(Qt::Key_F8);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("b b.csv"))}));

        run("c.nec", done);
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(isEnabled("showAllResultsAction"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(1, 2)).center());
        QVERIFY(isEnabled("showResultsAction"));
    }

    void resultsOfAllRunsAreShownTogether()
    {
        runTwo();
        run("a.nec", reporting("a.csv") + done);
        m_stage->press(Qt::Key_F8, Qt::ShiftModifier);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("a.csv")), between(file("b b.csv"))}));
        QCOMPARE(m_stage->outcomeText(), text("Opening 2 results in postkest"));
    }

    void resultsThatHaveGoneSinceAreToldOf()
    {
        runTwo();
        QFile::remove(file("b b.csv"));
        {
            const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
            m_stage->press(Qt::Key_F8);
            QCOMPARE(
                reader.texts,
                QStringList(text("These results are no longer there:\n%1").arg(file("b b.csv"))));
        }
        QVERIFY(isNothingLaunched());
        m_stage->press(Qt::Key_F8, Qt::ShiftModifier);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("a.csv"))}));

        Q_EMIT m_stage->find<QMenu>("applicationMenu")->aboutToShow();
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(isEnabled("showAllResultsAction"));
    }

    void clearedRunsHaveNoResults()
    {
        runTwo();
        m_stage->find<QAction>("clearAction")->trigger();
        QVERIFY(!isEnabled("showResultsAction"));
        QVERIFY(!isEnabled("showAllResultsAction"));
    }

    void buttonShowsTheResults()
    {
        runTwo();
        auto* const button = m_stage->find<QPushButton>("showResultsButton");
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("b b.csv"))}));
        QVERIFY(!button->accessibleDescription().isEmpty());
        m_stage->press(Qt::Key_L, Qt::AltModifier);
        QCOMPARE(toldBy(m_stage->program("postkest")),
                 QStringList({models(), between(file("b b.csv"))}));
    }

    void listOfRunsHasTheActionsOfARunInItsMenu()
    {
        const auto* const list = m_stage->find<QTableView>("runList");
        QCOMPARE(list->contextMenuPolicy(), Qt::ActionsContextMenu);
        QCOMPARE(list->actions(), QList<QAction*>({m_stage->find<QAction>("showRunAction"),
                                                   m_stage->find<QAction>("showResultsAction")}));
    }

    void everyActionIsInTheMenuWithAHintAndAKeyOfItsOwn()
    {
        const auto* const menu = m_stage->find<QMenu>("applicationMenu");
        QVERIFY(m_stage->window().menuBar()->actions().contains(menu->menuAction()));
        QVERIFY(menu->toolTipsVisible());
        QStringList names;
        const QList<QAction*> launches = menu->actions();
        for (const QAction* const action : launches) {
            if (!action->isSeparator()) {
                names.append(action->objectName());
                QVERIFY2(!action->shortcut().isEmpty(), qPrintable(action->text()));
                QString plain = action->text();
                QVERIFY(action->toolTip() != plain.remove(QLatin1Char('&')));
            }
        }
        QCOMPARE(names, QStringList({text("viewModelAction"), text("editModelAction"),
                                     text("showResultsAction"), text("showAllResultsAction"),
                                     text("consoleAction")}));
        QVector<QKeySequence> keys;
        const QList<QAction*> actions = m_stage->window().findChildren<QAction*>();
        for (const QAction* const action : actions) {
            if (!action->shortcut().isEmpty()) {
                QVERIFY2(!keys.contains(action->shortcut()), qPrintable(action->text()));
                keys.append(action->shortcut());
            }
        }
    }

    void consoleFindsTheSolversInTheModelsFolder_data()
    {
        QTest::addColumn<QByteArray>("model");
        QTest::addColumn<QByteArray>("folder");
        QTest::newRow("model") << QByteArray("models/m.nec") << QByteArray("models");
        QTest::newRow("no model") << QByteArray() << QByteArray("user");
        QTest::newRow("model in no folder") << QByteArray("gone/m.nec") << QByteArray("user");
    }

    void consoleFindsTheSolversInTheModelsFolder()
    {
        QFETCH(QByteArray, model);
        QFETCH(QByteArray, folder);
        const QString path = m_stage->desk().path("path");
        QVERIFY(QDir().mkpath(path));
        writeProgram(path + text("/x-terminal-emulator"), terminalScript);
        const QString shell = path + text("/a shell");
        writeProgram(shell, shellScript);
        const Variable search("PATH", path + text(":/usr/bin:/bin"));
        const Variable display("DISPLAY", text(":77"));
        const Variable user("SHELL", shell);
        const Variable home("HOME", m_stage->desk().path("user"));
        m_stage->typeModel(model.isEmpty() ? text(" ") : m_stage->desk().path(model.constData()));
        QVERIFY(isEnabled("consoleAction"));
        m_stage->press(Qt::Key_F9);
        const QString where =
            QFileInfo(m_stage->desk().path(folder.constData())).canonicalFilePath();
        QCOMPARE(toldBy(shell),
                 QStringList({where, m_stage->program("runkest"), text("/dev/null")}));
        QCOMPARE(m_stage->outcomeText(),
                 text("Opening a console in ") + m_stage->desk().path(folder.constData()));
        QVERIFY(!qEnvironmentVariable("PATH").contains(text("home/bin")));
    }

    void consoleHasAShellInAnyCase_data()
    {
        QTest::addColumn<QString>("shell");
        QTest::newRow("unset") << QString();
        QTest::newRow("gone") << text("/no/such/shell");
    }

    void consoleHasAShellInAnyCase()
    {
        QFETCH(QString, shell);
        const QString terminal = m_stage->desk().path("path/x-terminal-emulator");
        QVERIFY(QDir().mkpath(m_stage->desk().path("path")));
        writeProgram(terminal, tellingScript);
        const Variable search("PATH", m_stage->desk().path("path") + text(":/usr/bin:/bin"));
        const Variable display("DISPLAY", text(":77"));
        const Variable user("SHELL");
        if (!shell.isNull()) {
            qputenv("SHELL", shell.toLocal8Bit());
        }
        m_stage->typeModel(m_stage->model("m.nec", "valid"));
        m_stage->press(Qt::Key_F9);
        QCOMPARE(toldBy(terminal),
                 QStringList({models(), text("<-e>"), text("</usr/bin/env>"),
                              between(text("PATH=") + m_stage->desk().path("home/bin:") +
                                      m_stage->desk().path("path") + text(":/usr/bin:/bin")),
                              text("</bin/sh>")}));
    }

    void consoleNeedsSomethingToShowItIn_data()
    {
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<bool>("hasTerminal");
        QTest::addColumn<bool>("isOffered");
        QTest::newRow("display") << QByteArray("DISPLAY") << true << true;
        QTest::newRow("wayland") << QByteArray("WAYLAND_DISPLAY") << true << true;
        QTest::newRow("no display") << QByteArray("KEST_NO_DISPLAY") << true << false;
        QTest::newRow("no terminal") << QByteArray("DISPLAY") << false << false;
    }

    void consoleNeedsSomethingToShowItIn()
    {
        QFETCH(QByteArray, display);
        QFETCH(bool, hasTerminal);
        QFETCH(bool, isOffered);
        const QString path = m_stage->desk().path("path");
        QVERIFY(QDir().mkpath(path));
        if (hasTerminal) {
            writeProgram(path + text("/x-terminal-emulator"), terminalScript);
        }
        const Variable search("PATH", path);
        const Variable noDisplay("DISPLAY");
        const Variable noWayland("WAYLAND_DISPLAY");
        const Variable shown(display.constData(), text("77"));
        Q_EMIT m_stage->find<QMenu>("applicationMenu")->aboutToShow();
        QCOMPARE(isEnabled("consoleAction"), isOffered);
    }

    // With changes that are not saved, perhaps.
    void launchedApplicationsAreNotEndedWithTheRuns_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<int>("wishes");
        QTest::newRow("stopped") << QByteArray("forgetful") << 1;
        QTest::newRow("by force") << QByteArray("stubborn") << 2;
    }

    void launchedApplicationsAreNotEndedWithTheRuns()
    {
        QFETCH(QByteArray, word);
        QFETCH(int, wishes);
        writeProgram(m_stage->program("editkest"), stayingScript);
        const auto count = [this](const char* name) {
            return m_stage->desk().processes().filter(text(name)).size();
        };
        m_stage->run(m_stage->model("first.nec", "wait"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("running"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file("first.nec.seen")), longTime);
        {
            const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
            m_stage->pressStop();
            QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
        }
        m_stage->run(m_stage->model("second.nec", word));
        QTRY_COMPARE_WITH_TIMEOUT(count("runkest"), 2, longTime); // it has a child
        m_stage->press(Qt::Key_F7);
        QCOMPARE(toldBy(m_stage->program("editkest")), QStringList(text("here")));
        QVERIFY(WindowStage::quits([this, wishes] {
            for (int i = 0; i < wishes; ++i) {
                m_stage->window().quit();
            }
        }));
        QTRY_COMPARE_WITH_TIMEOUT(count("runkest"), 0, longTime);
        QCOMPARE(count("editkest"), 1);
    }
};

QTEST_MAIN(tst_applications)

#include "tst_applications.moc"
