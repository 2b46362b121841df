// SPDX-License-Identifier: MIT
#pragma once

#include "WindowStage.h"

#include <QFileInfo>

/// The window of kestdesk with the applications that it launches, played by scripts that write down
/// what they were given.
class LaunchStage
{
public:
    static constexpr int longTime = 60000; // ms, on a machine with much to do

    // Writes down, in a file beside it of its own name with ".told" added, its folder and its
    // arguments.
    static constexpr const char* tellingScript =
        "#!/bin/sh\n"
        "{ pwd -P; for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done; } > \"$0.new\"\n"
        "mv \"$0.new\" \"$0.told\"\n";

    // A component to which the model says in words of the shell what to do.
    static constexpr const char* obeyingScript = "#!/bin/sh\n"
                                                 "sh \"$1\"\n";

    static constexpr const char* table =
        "frequency_MHz,resistance_ohm,reactance_ohm,swr\n300,72,1,1.4\n";

    // What a model says for a run that is valid.
    static QByteArray done() { return QByteArrayLiteral("echo '-*-total-percentage-*-100%'\n"); }

    static QByteArray reporting(const char* file)
    {
        return QByteArray("echo '-*-file-*-") + file + "'\n";
    }

    static void writeProgram(const QString& path, const char* script)
    {
        QFile::remove(path); // it may be a link
        writeFile(path, script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // What the program has written down; waits for it.
    static QStringList toldBy(const QString& program)
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

    static QString between(const QString& path)
    {
        return QLatin1Char('<') + path + QLatin1Char('>');
    }

    // The window ends the program itself. Qt's own wish to do so when the last window has gone may
    // come late, and would close the next test's message boxes.
    static void beforeAll() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void setUp()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        for (const char* const name : {"cadkest", "postkest", "editkest"}) {
            writeProgram(m_stage->program(name), tellingScript);
        }
        m_stage->open();
    }

    void tearDown()
    {
        m_stage->close();
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), longTime);
        m_stage.reset();
    }

    QString models() const { return QFileInfo(m_stage->desk().path("models")).canonicalFilePath(); }

    QString file(const char* name) const { return m_stage->desk().path("models/") + text(name); }

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
        run("a.nec", reporting("a.csv") + done());
        run("b b.nec", reporting("b b.csv") + done());
        QCOMPARE(m_stage->state(0), text("valid"));
        QCOMPARE(m_stage->state(1), text("valid"));
    }

    bool isNothingLaunched() const
    {
        return QDir(m_stage->desk().path("home/bin")).entryList({text("*.told")}).isEmpty();
    }

protected:
    std::unique_ptr<WindowStage> m_stage;
};
