// SPDX-License-Identifier: MIT
// kestdesk as it is started in a terminal with the name of a model that is not there.
#include "Desk.h"
#include "TestedProgram.h"

#include <QProcess>
#include <QSettings>

#include <csignal>
#include <memory>

namespace {

constexpr int longTime = 30000; // ms, on a machine with much to do

} // namespace

class tst_missing_model : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    QString settingsFile() const { return m_desk->path("user/kestdesk.ini"); }

    QString lastModel() const
    {
        return QSettings(settingsFile(), QSettings::IniFormat)
            .value(text("session/model"))
            .toString();
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        writeFile(m_desk->path("models/last.nec"), "");
        QSettings settings(settingsFile(), QSettings::IniFormat);
        settings.setValue(text("session/model"), m_desk->path("models/last.nec"));
        settings.setValue(text("recentFiles/recentSession"), true);
    }

    void windowSaysOnceThatItIsNotThereAndHasNoOther_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("hint");
        QTest::newRow("nearly a command") << "opts"
                                          << "\n\nDid you mean \"kestdesk options\"?";
        QTest::newRow("a model") << "gone.nec"
                                 << "";
    }

    void windowSaysOnceThatItIsNotThereAndHasNoOther()
    {
        QFETCH(QString, word);
        QFETCH(QString, hint);
        const QTemporaryDir sockets;
        m_desk->set("KEST_TEST_DESK", sockets.path());
        m_desk->set("QT_QPA_PLATFORM", text("offscreen"));
        m_desk->set("QT_PLUGIN_PATH", text(TESTER_PATH));
        m_desk->set("QT_QPA_GENERIC_PLUGINS", text("guitester"));
        QProcess process;
        m_desk->start(process, {word});
        TestedProgram program(sockets.filePath(text("kestdesk")));
        QVERIFY(program.isReached(longTime));
        QTRY_COMPARE_WITH_TIMEOUT(program.property("qt_msgbox_label", "text").toString(),
                                  text("There is no model that can be read at\n") +
                                      m_desk->path("models/") + word + text(".") + hint,
                                  longTime);
        QCOMPARE(program.property("modelEdit", "text").toString(), QString());
        QCOMPARE(program.property("runButton", "enabled").toBool(), false);
        QCOMPARE(program.property("outcomeLabel", "text").toString(), QString());
        ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
        QCOMPARE(Desk::resultOf(process).exitCode, 0);
        QCOMPARE(lastModel(), m_desk->path("models/last.nec"));
    }

    void terminalSuggestsTheCommandAndRunsNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("problem");
        // clang-format off
        QTest::newRow("batch")            << QStringList{text("--non-interactive"), text("opts")}    << "there is no model opts; did you mean \"kestdesk options\"?";
        QTest::newRow("batch, behind it") << QStringList{text("--non-interactive"), text("options")} << "there is no model options; did you mean \"kestdesk options\"?";
        QTest::newRow("several words")    << QStringList{text("machine"), text("check")}             << "there is no model machine; did you mean \"kestdesk machines\"?";
        // clang-format on
    }

    void terminalSuggestsTheCommandAndRunsNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, problem);
        m_desk->set("QT_QPA_PLATFORM", text("offscreen"));
        const Desk::Result result = m_desk->run(arguments);
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.output, QString());
        QCOMPARE(result.errors.section(QLatin1Char('\n'), 0, 0), text("kestdesk: ") + problem);
    }

    void fileOfThatNameIsAModel()
    {
        writeFile(m_desk->path("models/opts"), "");
        const Desk::Result result = m_desk->run({text("--non-interactive"), text("opts")});
        QVERIFY2(!result.errors.contains(text("did you mean")), qPrintable(result.errors));
    }
};

QTEST_GUILESS_MAIN(tst_missing_model)

#include "tst_missing_model.moc"
