// SPDX-License-Identifier: MIT
#include "OpenGlDisplay.h"

#include <Text.h>

#include <QDir>
#include <QImage>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <memory>

namespace {

constexpr int longTime = 120000;

const char* const testHardware = "click Test hardware rendering";
const char* const keepHardware = "click Keep hardware rendering";
const char* const useSoftware = "click Use software rendering";

// How different two pictures are: the part of their pixels that differs.
double difference(const QImage& left, const QImage& right)
{
    int differing = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            differing += left.pixel(x, y) == right.pixel(x, y) ? 0 : 1;
        }
    }
    return double(differing) / left.width() / left.height();
}

} // namespace

/// The program as its users start it, with a user of the test's.
class tst_cadkest_window : public QObject
{
    Q_OBJECT

private:
    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    void set(const char* name, const QString& value) { m_environment.insert(text(name), value); }

    void start(const QStringList& steps)
    {
        set("KEST_CAD_USER", steps.join(QLatin1Char('\n')));
        m_process = std::make_unique<QProcess>();
        m_process->setProcessEnvironment(m_environment);
        m_process->start(text(CADKEST), {path("yagi.nec")});
        QVERIFY(m_process->waitForStarted());
    }

    // What the user of the steps has seen, once the program has ended.
    QString end()
    {
        if (!m_process->waitForFinished(longTime)) {
            qCritical("the program goes on: %s", m_process->readAllStandardError().constData());
            m_process->kill();
            m_process->waitForFinished();
        }
        QStringList seen;
        const QStringList lines =
            QString::fromUtf8(m_process->readAllStandardError()).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            if (line.startsWith(text("user: "))) {
                seen.append(line.mid(6));
            }
        }
        return seen.join(QLatin1Char('|'));
    }

    QString run(const QStringList& steps)
    {
        start(steps);
        return end();
    }

    bool hasEndedWell() const
    {
        return m_process->exitStatus() == QProcess::NormalExit && m_process->exitCode() == 0;
    }

    QString settingsFile() const { return path("user/cadkest.ini"); }

    QByteArray settingsText() const
    {
        QFile file(settingsFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString saved(const char* key) const
    {
        const QSettings settings(settingsFile(), QSettings::IniFormat);
        return settings.value(text(key)).toString();
    }

    void saveRendering(const char* hardware, const char* displacement = "2") const
    {
        QSettings settings(settingsFile(), QSettings::IniFormat);
        settings.setValue(text("rendering/HardwareRendering"), text(hardware));
        settings.setValue(text("rendering/HardwareRenderingAsked"), true);
        settings.setValue(text("rendering/FaceDisplacement"), text(displacement));
    }

    void playFault(const char* fault)
    {
        set("LD_PRELOAD", text(FAULTY_DRIVER));
        set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
        set("KEST_DRIVER_FAULT", text(fault));
    }

    // The window after the motion of a 3D mouse, as often as said, at a sensitivity.
    QImage movedAt(double sensitivity, int times)
    {
        {
            QSettings settings(path("user/kest.ini"), QSettings::IniFormat);
            settings.setValue(text("3dmouse/3DMouseSensitivity"), sensitivity);
        }
        const std::array<qint32, 8> motion = {0, 350, 0, 0, 0, 0, 0, 100};
        QLocalServer server;
        if (!server.listen(path("spnav"))) {
            return QImage();
        }
        start({text("grab"), text("read renderingName"), text("moved"),
               text("grab ") + path("moved.png"), text("close")});
        if (!server.waitForNewConnection(longTime)) {
            return QImage();
        }
        QLocalSocket* const mouse = server.nextPendingConnection();
        m_process->setReadChannel(QProcess::StandardError);
        QByteArray seen;
        while (!seen.contains("renderingName") && m_process->waitForReadyRead(longTime)) {
            seen += m_process->readAll();
        }
        for (int i = 0; i < times; ++i) {
            mouse->write(reinterpret_cast<const char*>(motion.data()), sizeof motion);
        }
        mouse->waitForBytesWritten(longTime);
        m_process->waitForFinished(longTime);
        return QImage(path("moved.png"));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
    std::unique_ptr<QProcess> m_process;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/yagi.nec"), path("yagi.nec")));
        QVERIFY(QDir(m_folder->path()).mkdir(text("user")));
        m_environment = QProcessEnvironment::systemEnvironment();
        set("KEST_HOME", text(KEST_SUITE));
        set("KEST_USER_HOME", path("user"));
        set("XDG_RUNTIME_DIR", m_folder->path());
        set("QT_PLUGIN_PATH", text(CAD_USER_PATH));
        set("QT_QPA_GENERIC_PLUGINS", text("caduser"));
        set("SPNAV_SOCKET", path("spnav"));
        set("ASAN_OPTIONS", text("detect_leaks=0"));
    }

    void cleanup()
    {
        if (m_process) {
            m_process->kill();
            m_process->waitForFinished();
            m_process.reset();
        }
    }

    void theFirstStartAsksAndTheSecondDoesNot()
    {
        QCOMPARE(run({text(useSoftware), text("read renderingName"), text("boxes"), text("close")}),
                 text("renderingName = Software rendering|no box"));
        QVERIFY(hasEndedWell());
        QCOMPARE(saved("rendering/HardwareRendering"), text("false"));
        QCOMPARE(run({text("read renderingName"), text("grab"), text("boxes"), text("close")}),
                 text("renderingName = Software rendering|no box"));
        QVERIFY(hasEndedWell());
    }

    void withoutOpenGlTheTestSaysSo()
    {
        if (isSkipped(hasOpenGl(), "this display has OpenGL")) {
            return;
        }
        QCOMPARE(run({text(testHardware), text("read renderingMessage"), text("read renderingName"),
                      text("boxes"), text("grab"), text("key Left"), text("moved"), text("close")}),
                 text("renderingMessage = Hardware rendering is not available: this display has no "
                      "OpenGL. Software rendering is used.|renderingName = Software rendering|"
                      "no box"));
        QVERIFY(hasEndedWell());
        QCOMPARE(saved("rendering/HardwareRendering"), text("false"));
        QCOMPARE(saved("rendering/HardwareRenderingAsked"), text("true"));
    }

    void withoutOpenGlHardwareIsAskedForInVainAtEachStart()
    {
        if (isSkipped(hasOpenGl(), "this display has OpenGL")) {
            return;
        }
        saveRendering("true");
        for (int start = 0; start < 2; ++start) {
            QCOMPARE(run({text("read renderingMessage"), text("read renderingName"), text("grab"),
                          text("key Left"), text("moved"), text("grab ") + path("seen.png"),
                          text("close")}),
                     text("renderingMessage = Hardware rendering is not available: this display "
                          "has no OpenGL. Software rendering is used.|"
                          "renderingName = Software rendering"));
            QVERIFY(hasEndedWell());
            QVERIFY(!QImage(path("seen.png")).isNull());
            QCOMPARE(saved("rendering/HardwareRendering"), text("true")); // the user's wish stays
        }
    }

    void hardwareIsTestedAndKept()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        QCOMPARE(run({text(testHardware), text(keepHardware), text("read renderingName"),
                      text("close")}),
                 text("renderingName = Hardware rendering"));
        QVERIFY(hasEndedWell());
        QCOMPARE(saved("rendering/HardwareRendering"), text("true"));
        QCOMPARE(run({text("await Hardware rendering"), text("grab"), text("boxes"),
                      text("key Left"), text("moved"), text("close")}),
                 text("no box"));
        QVERIFY(hasEndedWell());
        QCOMPARE(saved("rendering/HardwareRendering"), text("true"));
        QCOMPARE(saved("rendering/HardwareRenderingUnproven"), text("false"));
    }

    void closingTheWindowRefusesHardware()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        start({text(testHardware), text("close")});
        QCOMPARE(end(), QString());
        QVERIFY(hasEndedWell());
        QCOMPARE(saved("rendering/HardwareRendering"), text("false"));
        QCOMPARE(saved("rendering/HardwareRenderingAsked"), text("true"));
    }

    void aDriverThatFailsInTheTestLeavesSoftware_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("reason");
        QTest::newRow("crashes") << text("trial crashes") << text("OpenGL crashed when");
        QTest::newRow("hangs") << text("trial hangs") << text("OpenGL gave no answer when");
        QTest::newRow("draws nothing but black")
            << text("trial is black") << text("OpenGL draws wrong pictures");
    }

    void aDriverThatFailsInTheTestLeavesSoftware()
    {
        QFETCH(QString, fault);
        QFETCH(QString, reason);
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        playFault(fault.toLatin1().constData());
        const QString seen = run({text(testHardware), text("read renderingMessage"), text("boxes"),
                                  text("grab"), text("key Left"), text("moved"), text("close")});
        QVERIFY2(seen.startsWith(text("renderingMessage = Hardware rendering is not available: ") +
                                 reason),
                 qPrintable(seen));
        QVERIFY(seen.endsWith(text("|no box")));
        QVERIFY(hasEndedWell());
        QCOMPARE(run({text("read renderingName"), text("grab"), text("boxes"), text("key Left"),
                      text("moved"), text("close")}),
                 text("renderingName = Software rendering|no box"));
        QVERIFY(hasEndedWell());
    }

    // The trial went well, and then the driver ends the program.
    void aDriverThatEndsTheProgramIsNotMetAgain_data()
    {
        QTest::addColumn<bool>("isKept");
        QTest::newRow("in the test") << false;
        QTest::newRow("at a start, long after it was kept") << true;
    }

    void aDriverThatEndsTheProgramIsNotMetAgain()
    {
        QFETCH(bool, isKept);
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        playFault("window crashes");
        if (isKept) {
            saveRendering("true");
            run({text("read nothing")});
        } else {
            run({text(testHardware)});
        }
        QCOMPARE(m_process->exitStatus(), QProcess::CrashExit);
        const QStringList work = {text("boxes"),
                                  text("grab"),
                                  text("key Left"),
                                  text("moved"),
                                  text("read renderingName"),
                                  text("close")};
        const QString seen = run(isKept ? QStringList{text("read renderingMessage")} + work : work);
        QVERIFY(hasEndedWell());
        QVERIFY2(seen.endsWith(text("no box|renderingName = Software rendering")),
                 qPrintable(seen));
        QCOMPARE(seen.contains(text("the program ended when it was last switched on")), isKept);
    }

    void settingsAreUsedAndKept()
    {
        saveRendering("false", "31");
        QCOMPARE(
            run({text("read renderingName"), text("grab ") + path("displaced.png"), text("close")}),
            text("renderingName = Software rendering"));
        QVERIFY(settingsText().contains("yagi.nec"));
        QCOMPARE(saved("rendering/FaceDisplacement"), text("31"));
        saveRendering("false", "0");
        run({text("read renderingName"), text("grab ") + path("flat.png"), text("close")});
        const QImage displaced(path("displaced.png"));
        const QImage flat(path("flat.png"));
        QCOMPARE(flat.size(), displaced.size());
        QVERIFY(difference(flat, displaced) > 0);
    }

    void theSettingsDialogChangesTheRenderer()
    {
        saveRendering("false");
        QStringList steps = {text("trigger actionRendering"), text("click Hardware rendering2"),
                             text("click OK")};
        steps += hasOpenGl() ? text("await Hardware rendering") : text("read renderingMessage");
        steps += text("grab");
        steps += text("close");
        const QString seen = run(steps);
        QVERIFY(hasEndedWell());
        QCOMPARE(seen.contains(text("is not available")), !hasOpenGl());
        QCOMPARE(saved("rendering/HardwareRendering"), text("true"));
    }

    void f1ShowsThePageOfTheWindow()
    {
        saveRendering("false");
        QCOMPARE(run({text("key F1"), text("read help"), text("close")}),
                 text("help = The window of cadkest"));
    }

    void theHelpMenuStandsLastAndShowsThePageOfTheWindow()
    {
        saveRendering("false");
        QCOMPARE(run({text("menus"), text("trigger helpAction"), text("read help"), text("close")}),
                 text("menus = &File &View &Settings &Help|help = The window of cadkest"));
        QVERIFY(hasEndedWell());
    }

    void theHelpMenuSaysWhatTheProgramIs()
    {
        saveRendering("false");
        const QString seen = run({text("trigger aboutAction"), text("read qt_msgbox_label"),
                                  text("click OK"), text("boxes"), text("close")});
        const QStringList words = seen.split(QLatin1Char('|'));
        QVERIFY2(words.size() > 4, qPrintable(seen));
        QCOMPARE(words.at(0), text("qt_msgbox_label = cadkest " KEST_VERSION));
        QCOMPARE(words.at(1), text("Shows a model's wires in three dimensions."));
        QCOMPARE(words.last(), text("no box"));
        QVERIFY(hasEndedWell());
    }

    void theSensitivityOfThe3DMouseIsUsed()
    {
        if (isSkipped(!HAS_SPACE_MOUSE, "no library for 3D mice")) {
            return;
        }
        saveRendering("false");
        const QImage once = movedAt(50, 1);
        QVERIFY(!once.isNull());
        const QImage twice = movedAt(50, 2);
        const QImage fast = movedAt(100, 1);
        QCOMPARE(twice.size(), once.size());
        QCOMPARE(fast.size(), once.size());
        QVERIFY(difference(once, fast) > 0.002);
        QVERIFY(difference(twice, fast) < difference(once, fast) / 10);
    }
};

QTEST_GUILESS_MAIN(tst_cadkest_window)
#include "tst_cadkest_window.moc"
