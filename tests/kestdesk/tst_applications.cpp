// SPDX-License-Identifier: MIT
#include "LaunchStage.h"
#include "PlayedConsole.h"

#include <BoxReader.h>
#include <SystemSkips.h>

#include <QMenuBar>

namespace {

// A terminal emulator: called with "-e" before a command.
const char* const terminalScript = "#!/bin/sh\n"
                                   "[ \"$1\" = -e ] && shift && exec \"$@\"\n";

// A shell that writes down where it is and which solver it finds.
const char* const shellScript = "#!/bin/sh\n"
                                "{ pwd -P; command -v runkest; ls /dev/null; } > \"$0.new\"\n"
                                "mv \"$0.new\" \"$0.told\"\n";

void writeScript(const QString& path, const char* script)
{
    writeFile(path, script);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

#ifdef Q_OS_WIN
constexpr bool hasConsolesAlways = true;
#else
constexpr bool hasConsolesAlways = false;
#endif

QString failureText(const QString& program)
{
    return text("Process could not be started with the following arguments:\n") +
           PlayedProgram::shown(program) +
           text(".\nPlease ensure that Morlan Kest is fully installed, and that\n"
                "the KEST_HOME environment variable is set correctly.");
}

} // namespace

// kestdesk launches the other applications and a console.
class tst_applications : public QObject, private LaunchStage
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { LaunchStage::beforeAll(); }
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void modelIsOpenedInTheApplications_data()
    {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<int>("key");
        QTest::addColumn<QByteArray>("model");
        QTest::newRow("viewer") << QByteArray("cadkest") << int(Qt::Key_F6) << QByteArray("m.nec");
        QTest::newRow("editor") << QByteArray("editkest") << int(Qt::Key_F7) << QByteArray("m.nec");
        QTest::newRow("odd name") << QByteArray("cadkest") << int(Qt::Key_F6)
                                  << QByteArray("-an  \"odd\" $model.nec");
        QTest::newRow("other odd name") << QByteArray("editkest") << int(Qt::Key_F7)
                                        << QByteArray("-an  'odd' %PATH%^&$model.nec");
    }

    void modelIsOpenedInTheApplications()
    {
        QFETCH(QByteArray, program);
        QFETCH(int, key);
        QFETCH(QByteArray, model);
        if (model.contains('"')) {
            SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        }
        const QString path = m_stage->model(model.constData(), "valid");
        m_stage->typeModel(path);
        m_stage->press(Qt::Key(key));
        QCOMPARE(toldBy(program.constData()), QStringList({models(), between(path)}));
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
        QCOMPARE(toldBy("cadkest"), QStringList({models(), between(models() + text("/m.nec"))}));
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
        const QString path = folder ? models() : file("gone.nec");
        m_stage->typeModel(path);
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->press(Qt::Key(key));
        QCOMPARE(reader.texts,
                 QStringList(text("There is no model that can be read at\n%1.").arg(native(path))));
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
        const QString path = m_stage->program(program.constData());
        QVERIFY(QFile::remove(PlayedProgram::file(path)));
        if (isThere) {
            writeFile(PlayedProgram::file(path), "no program");
        }
        BoxReader reader;
        m_stage->press(Qt::Key(key));
        const QVector<BoxReader::Box> boxes = reader.take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes.first().title, text("Information"));
        QCOMPARE(boxes.first().text, failureText(path));
        QCOMPARE(boxes.first().parent, &m_stage->window());
        QCOMPARE(m_stage->outcomeText(), outcome);
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
        SKIP_WITHOUT_SHELL();
        QFETCH(QByteArray, model);
        QFETCH(QByteArray, folder);
        const QString path = m_stage->desk().path("path");
        QVERIFY(QDir().mkpath(path));
        writeScript(path + text("/x-terminal-emulator"), terminalScript);
        const QString shell = path + text("/a shell");
        writeScript(shell, shellScript);
        const Variable search("PATH", path + text(":/usr/bin:/bin"));
        const Variable display("DISPLAY", text(":77"));
        const Variable user("SHELL", shell);
        const Variable home("HOME", m_stage->desk().path("user"));
        m_stage->typeModel(model.isEmpty() ? text(" ") : m_stage->desk().path(model.constData()));
        QVERIFY(isEnabled("consoleAction"));
        m_stage->press(Qt::Key_F9);
        const QString where =
            QFileInfo(m_stage->desk().path(folder.constData())).canonicalFilePath();
        QCOMPARE(PlayedProgram::toldBy(shell),
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
        const PlayedConsole console(m_stage->desk());
        const Variable user("SHELL");
        if (!shell.isNull()) {
            qputenv("SHELL", shell.toLocal8Bit());
        }
        m_stage->typeModel(m_stage->model("m.nec", "valid"));
        m_stage->press(Qt::Key_F9);
        QCOMPARE(console.told(), QStringList(models()) + console.expectedArguments());
        QCOMPARE(m_stage->outcomeText(),
                 text("Opening a console in ") + native(m_stage->desk().path("models")));
    }

    void consoleNeedsSomethingToShowItIn_data()
    {
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<bool>("hasTerminal");
        QTest::addColumn<bool>("isOffered");
        QTest::newRow("display") << QByteArray("DISPLAY") << true << true;
        QTest::newRow("wayland") << QByteArray("WAYLAND_DISPLAY") << true << true;
        QTest::newRow("no display") << QByteArray("KEST_NO_DISPLAY") << true << hasConsolesAlways;
        QTest::newRow("no terminal") << QByteArray("DISPLAY") << false << hasConsolesAlways;
    }

    void consoleNeedsSomethingToShowItIn()
    {
        QFETCH(QByteArray, display);
        QFETCH(bool, hasTerminal);
        QFETCH(bool, isOffered);
        const QString path = m_stage->desk().path("path");
        QVERIFY(QDir().mkpath(path));
        if (hasTerminal) {
            writeScript(path + text("/x-terminal-emulator"), terminalScript);
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
        play("editkest", "tell\nhere\ntold\nsleep\n3600000\n"); // is killed in the end
        const auto count = [this](const char* name) {
            return m_stage->desk().processes().filter(text(name)).size();
        };
        m_stage->run(m_stage->model("first.nec", "wait"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("running"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file("first.nec.seen")), longTime);
        {
            const BoxAnswerer willing(WindowStage::agreeing());
            m_stage->pressStop();
            QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
        }
        m_stage->run(m_stage->model("second.nec", word));
        QTRY_COMPARE_WITH_TIMEOUT(count("runkest"), 2, longTime); // it has a child
        m_stage->press(Qt::Key_F7);
        QCOMPARE(toldBy("editkest"), QStringList(text("here")));
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
