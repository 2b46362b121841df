// SPDX-License-Identifier: MIT
#pragma once

#include "WindowStage.h"

#include <PlayedProgram.h>

#include <WindowRun.h>

#include <QFileInfo>

#include <algorithm>

/// The window of kestdesk with the applications that it launches, played by programs that write
/// down what they were given.
class LaunchStage
{
public:
    static constexpr int longTime = 60000; // ms, on a machine with much to do

    static constexpr const char* table =
        "frequency_MHz,resistance_ohm,reactance_ohm,swr\n300,72,1,1.4\n";

    // What a model says to the component, a word a line: commands of the tests' child.
    static QByteArray saying(const QByteArray& line, const char* channel = "out")
    {
        return channel + QByteArrayLiteral("\n") + line + "\\n\n";
    }

    static QByteArray reporting(const char* file, const char* channel = "out")
    {
        return saying(QByteArrayLiteral("-*-file-*-") + file, channel);
    }

    // For a run that is valid.
    static QByteArray done() { return saying("-*-total-percentage-*-100%"); }

    QStringList toldBy(const char* application) const
    {
        return PlayedProgram::toldBy(m_stage->program(application));
    }

    // As messages show a path.
    static QString native(const QString& path) { return QDir::toNativeSeparators(path); }

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
            play(name, PlayedProgram::telling);
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

    void play(const char* program, const char* commands) const
    {
        QVERIFY(PlayedProgram::install(m_stage->program(program), commands));
    }

    // A component that does what the model says.
    void obey() const { play("runkest", "obey\n"); }

    // Runs a model to its end.
    void run(const char* name, const QByteArray& words) const
    {
        const int row = m_stage->runCount();
        m_stage->run(m_stage->model(name, words));
        QTRY_VERIFY_WITH_TIMEOUT(
            m_stage->runCount() > row && m_stage->state(row) != text("running"), longTime);
    }

    // What the window offers is looked up again when the record of a run is complete.
    void waitForRecords() const
    {
        const QList<WindowRun*> runs = m_stage->window().findChildren<WindowRun*>();
        QCOMPARE(runs.size(), m_stage->runCount());
        QTRY_VERIFY_WITH_TIMEOUT(std::all_of(runs.begin(), runs.end(),
                                             [](const WindowRun* r) { return r->isRecorded(); }),
                                 longTime);
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
