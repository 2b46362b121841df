// SPDX-License-Identifier: MIT
#include "OpenGlDisplay.h"
#include "RenderingStage.h"

#include <Text.h>

#include <RenderingSwitch.h>

#include <QApplication>
#include <QSignalSpy>
#include <QStatusBar>
#include <QtTest>

#include <memory>

namespace {

constexpr int longTime = 60000;

} // namespace

class tst_rendering_switch : public QObject
{
    Q_OBJECT

private:
    RenderingSwitch& makeSwitch(const QByteArray& commands)
    {
        m_switch = std::make_unique<RenderingSwitch>(&m_stage->window, &m_stage->settings,
                                                     m_stage->program(commands));
        return *m_switch;
    }

    // Where the prober notes its process id, and how often it was started.
    QString noteFile() const { return m_stage->folders.path() + text("/note"); }

    QStringList notes() const
    {
        QFile file(noteFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll())
                                                    .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                                              : QStringList();
    }

    QByteArray hanging() const
    {
        return "echo $$ >> '" + noteFile().toLocal8Bit() + "'; exec sleep 1000";
    }

    bool isProberThere() const { return QFile::exists(text("/proc/") + notes().value(0)); }

    std::unique_ptr<RenderingStage> m_stage;
    std::unique_ptr<RenderingSwitch> m_switch;

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<RenderingStage>();
        m_stage->window.show();
    }

    void cleanup()
    {
        m_switch.reset();
        m_stage.reset();
    }

    void aTrialThatFailsLeavesSoftware_data()
    {
        QTest::addColumn<QByteArray>("commands");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const QByteArray& commands, const char* reason) {
            QTest::newRow(name) << commands << text(reason);
        };
        row("crashes", "kill -SEGV $$", "OpenGL crashed when it was tried");
        row("aborts after a word", "echo good; kill -ABRT $$", "OpenGL crashed when it was tried");
        row("never answers", "exec sleep 1000", "OpenGL gave no answer when it was tried");
        row("refuses", "echo chatter; echo this display is flat; exit 1", "this display is flat");
        row("refuses without a word", "exit 3", "OpenGL does not work");
        row("refuses with pages", "head -c 100000 /dev/zero | tr '\\0' x; exit 1", "xxxxxxxxxx");
    }

    void aTrialThatFailsLeavesSoftware()
    {
        QFETCH(QByteArray, commands);
        QFETCH(QString, reason);
        RenderingSwitch& change = makeSwitch(commands);
        change.probe().setPatience(
            commands.contains("1000;") || commands.contains("sleep") ? 300 : longTime);
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QCOMPARE(changed.size(), 0); // the window does not wait
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QCOMPARE(changed.first().first().toBool(), false);
        const QLabel& message = m_stage->label("renderingMessage");
        QVERIFY(message.isVisible());
        QVERIFY2(message.text().startsWith(text("Hardware rendering is not available: ") + reason),
                 qPrintable(message.text()));
        QVERIFY(message.text().size() < 500);
        QVERIFY(m_stage->isUsable());
        QVERIFY(!change.probe().isRunning());
        QVERIFY(m_stage->saved("HardwareRenderingUnproven") != text("true"));
        QTest::qWait(20); // for one signal too many
        QCOMPARE(changed.size(), 1);
    }

    void aProgramThatIsMissingIsTold()
    {
        m_switch = std::make_unique<RenderingSwitch>(&m_stage->window, &m_stage->settings,
                                                     m_stage->folders.path() + text("/none"));
        const QSignalSpy changed(m_switch.get(), &RenderingSwitch::changed);
        m_switch->change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QCOMPARE(changed.first().first().toBool(), false);
        QVERIFY(m_stage->label("renderingMessage").text().contains(text("could not be tried")));
        QVERIFY(m_stage->isUsable());
    }

    void theProgramIsToldWhatToDo()
    {
        RenderingSwitch& change = makeSwitch("echo \"words $#: $*\"; exit 1");
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QVERIFY(
            m_stage->label("renderingMessage").text().contains(text(": words 1: --try-opengl. ")));
    }

    void aNewTrialMayGoWell()
    {
        const QByteArray flag = m_stage->folders.path().toLocal8Bit() + "/flag";
        RenderingSwitch& change =
            makeSwitch("test -e '" + flag + "' || { touch '" + flag + "'; exit 1; }");
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        for (int count = 1; count < 3; ++count) {
            change.change(Rendering::Hardware);
            QTRY_COMPARE_WITH_TIMEOUT(changed.size(), count, longTime);
        }
        QCOMPARE(changed.at(0).first().toBool(), false);
        QCOMPARE(changed.at(1).first().toBool(), hasOpenGl());
        QCOMPARE(m_stage->label("renderingMessage").isHidden(), hasOpenGl());
    }

    void theUserIsToldOfTheTrialWhileItLasts()
    {
        RenderingSwitch& change = makeSwitch(hanging());
        change.change(Rendering::Hardware);
        QCOMPARE(m_stage->window.statusBar()->currentMessage(),
                 text("Trying hardware rendering..."));
        QVERIFY(m_stage->isUsable());
        change.change(Rendering::Software);
        QCOMPARE(m_stage->window.statusBar()->currentMessage(), QString());
    }

    void softwareEndsTheTrial()
    {
        RenderingSwitch& change = makeSwitch(hanging());
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        change.change(Rendering::Hardware); // one trial is enough
        QTRY_VERIFY_WITH_TIMEOUT(notes().size() == 1, longTime);
        QVERIFY(isProberThere());
        change.change(Rendering::Software);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toBool(), true);
        QVERIFY(!isProberThere());
        QVERIFY(!change.probe().isRunning());
        QCOMPARE(notes().size(), 1);
        QVERIFY(m_stage->label("renderingMessage").isHidden());
    }

    void anEndedTrialNeverRunsOutOfTime()
    {
        RenderingSwitch& change = makeSwitch(hanging());
        change.probe().setPatience(100);
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        change.change(Rendering::Software);
        QTest::qWait(300); // three times the patience, in which nothing may happen
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toBool(), true);
        QVERIFY(m_stage->label("renderingMessage").isHidden());
    }

    void theTrialEndsWithTheWindow()
    {
        makeSwitch(hanging()).change(Rendering::Hardware);
        QTRY_VERIFY_WITH_TIMEOUT(!notes().isEmpty(), longTime);
        QVERIFY(isProberThere());
        m_switch.reset();
        QVERIFY(!isProberThere());
    }

    void aTrialWithoutAnAnswerIsEnded()
    {
        RenderingSwitch& change = makeSwitch(hanging());
        change.probe().setPatience(1000);
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QTRY_VERIFY_WITH_TIMEOUT(!isProberThere(), longTime);
    }

    void theStartFollowsTheSettings_data()
    {
        QTest::addColumn<bool>("isHardware");
        QTest::addColumn<bool>("isUnproven");
        QTest::addColumn<bool>("isTried");
        QTest::newRow("software") << false << false << false;
        QTest::newRow("software, after a crash in the test") << false << true << false;
        QTest::newRow("hardware") << true << false << true;
        QTest::newRow("hardware, after a crash") << true << true << false;
    }

    void theStartFollowsTheSettings()
    {
        QFETCH(bool, isHardware);
        QFETCH(bool, isUnproven);
        QFETCH(bool, isTried);
        m_stage->settings.rendering = isHardware ? Rendering::Hardware : Rendering::Software;
        m_stage->settings.isUnproven = isUnproven;
        m_stage->settings.writeSettings();
        RenderingSwitch& change = makeSwitch(hanging());
        change.start();
        QCOMPARE(change.probe().isRunning(), isTried);
        QVERIFY(m_stage->isUsable());
        const bool isTold = isHardware && isUnproven;
        QCOMPARE(m_stage->label("renderingMessage").isVisible(), isTold);
        QCOMPARE(m_stage->label("renderingMessage").text().contains(text("the program ended")),
                 isTold);
        m_switch.reset();
        QCOMPARE(m_stage->saved("HardwareRendering"), isHardware ? text("true") : text("false"));
        QCOMPARE(m_stage->saved("HardwareRenderingUnproven"),
                 isUnproven ? text("true") : text("false"));
    }

    // The trial went well, and yet the window gets no OpenGL.
    void aTrialIsNoPromise()
    {
        if (isSkipped(hasOpenGl(), "this display keeps every promise")) {
            return;
        }
        RenderingSwitch& change = makeSwitch("exit 0");
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QCOMPARE(changed.first().first().toBool(), false);
        QVERIFY(m_stage->label("renderingMessage").isVisible());
        QCOMPARE(m_stage->saved("HardwareRenderingUnproven"), text("false"));
        QVERIFY(m_stage->isUsable());
    }

    void hardwareIsProvenByItsFirstPicture()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        RenderingSwitch& change = makeSwitch("exit 0");
        QString whenChanged;
        connect(&change, &RenderingSwitch::changed, this,
                [&] { whenChanged = m_stage->saved("HardwareRenderingUnproven"); });
        change.change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->window.view()->rendering(), Rendering::Hardware,
                                  longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->saved("HardwareRenderingUnproven"), text("false"),
                                  longTime);
        QCOMPARE(whenChanged, text("true"));
        QCOMPARE(m_stage->label("renderingName").text(), text("Hardware rendering"));
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QCOMPARE(changed.size(), 1);
        QVERIFY(!change.probe().isRunning());
        change.change(Rendering::Software);
        QVERIFY(m_stage->isUsable());
    }

    void aWindowThatIsClosedAtOnceProvesNothingBad()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        m_stage->window.hide();
        RenderingSwitch& change = makeSwitch("exit 0");
        const QSignalSpy changed(&change, &RenderingSwitch::changed);
        change.change(Rendering::Hardware);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, longTime);
        QCOMPARE(m_stage->saved("HardwareRenderingUnproven"), text("true"));
        m_switch.reset();
        QCOMPARE(m_stage->saved("HardwareRenderingUnproven"), text("false"));
    }
};

QTEST_MAIN(tst_rendering_switch)
#include "tst_rendering_switch.moc"
