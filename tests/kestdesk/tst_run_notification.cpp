// SPDX-License-Identifier: MIT
#include "WindowStage.h"

#include <Notifier.h>

#include <QDBusConnection>
#include <QStandardPaths>

namespace {

QList<const QWidget*>& alerted()
{
    static QList<const QWidget*> widgets;
    return widgets;
}

} // namespace

// Stands in for Qt's own, of which the offscreen platform shows nothing.
void QApplication::alert(QWidget* widget, int /*milliseconds*/)
{
    alerted().append(widget);
}

/// Plays the desktop's notification server.
class NotificationServer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Notification
    {
        QString application;
        QString title;
        QString body;
    };

    QVector<Notification> shown;

public Q_SLOTS:
    // NOLINTNEXTLINE(readability-identifier-naming): the interface's name
    uint Notify(const QString& application, uint /*replaced*/, const QString& /*icon*/,
                const QString& title, const QString& body, const QStringList& /*actions*/,
                const QVariantMap& /*hints*/, int /*milliseconds*/)
    {
        shown.append({application, title, body});
        return static_cast<uint>(shown.size());
    }
};

class tst_run_notification : public QObject
{
    Q_OBJECT

private:
    QProcess m_bus;
    NotificationServer m_server;

    bool startBus()
    {
        m_bus.start(text("dbus-daemon"),
                    {text("--session"), text("--nofork"), text("--print-address")});
        if (!m_bus.waitForStarted(30000) || !m_bus.waitForReadyRead(30000)) {
            return false;
        }
        const QByteArray address = m_bus.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QDBusConnection connection =
            QDBusConnection::connectToBus(QString::fromLatin1(address), text("server"));
        return connection.registerObject(text("/org/freedesktop/Notifications"), &m_server,
                                         QDBusConnection::ExportAllSlots) &&
               connection.registerService(text("org.freedesktop.Notifications"));
    }

    // Runs a component that is terminated while the user works in another program.
    static void endInTheBackground(WindowStage& stage)
    {
        stage.open();
        stage.run(stage.model("m.nec", "wait"));
        QVERIFY(QTest::qWaitForWindowActive(stage.dialogs().constFirst()));
        QTRY_COMPARE_WITH_TIMEOUT(stage.desk().processes().filter(text("m.nec")).size(), 1, 60000);
        stage.dialogs().constFirst()->hide();
        stage.window().hide();
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(nullptr);
        QCOMPARE(stage.state(), text("running"));
        stage.endRuns(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(stage.state(), text("stopped"), 60000);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!QStandardPaths::findExecutable(text("dbus-daemon")).isEmpty(),
                 "dbus-daemon is needed to play a desktop's session");
        QVERIFY(startBus());
    }

    void init()
    {
        m_server.shown.clear();
        alerted().clear();
    }

    void cleanupTestCase()
    {
        QDBusConnection::disconnectFromBus(text("server"));
        m_bus.terminate();
        QVERIFY(m_bus.state() == QProcess::NotRunning || m_bus.waitForFinished(30000));
    }

    void textIsNoMarkup() const
    {
        QElapsedTimer clock;
        clock.start();
        Notifier::show(text("Run ended"), text("runkest of <b>a & b</b>.nec: valid"));
        QVERIFY(clock.elapsed() < 15000); // the server can only answer later
        QTRY_COMPARE_WITH_TIMEOUT(m_server.shown.size(), 1, 30000);
        QCOMPARE(m_server.shown.constFirst().application, text("tst_run_notification"));
        QCOMPARE(m_server.shown.constFirst().title, text("Run ended"));
        QCOMPARE(m_server.shown.constFirst().body,
                 text("runkest of &lt;b&gt;a &amp; b&lt;/b&gt;.nec: valid"));
    }

    void runThatEndsInTheBackgroundIsNotified() const
    {
        WindowStage stage;
        endInTheBackground(stage);
        QTRY_COMPARE_WITH_TIMEOUT(m_server.shown.size(), 1, 30000);
        QCOMPARE(m_server.shown.constFirst().title, text("Run ended"));
        QCOMPARE(
            m_server.shown.constFirst().body,
            text("runkest of m.nec: stopped. It was ended by SIGTERM (signal 15): somebody asked "
                 "it to end: a user, the system as it shuts down, or the time limit of a job "
                 "scheduler."));
        QCOMPARE(alerted(), QList<const QWidget*>({&stage.window()}));
    }

    void userWhoWantsNoNotificationsGetsNone() const
    {
        WindowStage stage;
        stage.setPreference("notifications", false);
        endInTheBackground(stage);
        Notifier::show(text("last"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!m_server.shown.isEmpty(), 30000);
        QCOMPARE(m_server.shown.constFirst().title, text("last"));
        QCOMPARE(alerted(), QList<const QWidget*>({&stage.window()}));
    }

    void runThatEndsBeforeTheUsersEyesIsNot() const
    {
        WindowStage stage;
        stage.open();
        stage.run(stage.model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(stage.state(), text("valid"), 60000);
        Notifier::show(text("last"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!m_server.shown.isEmpty(), 30000);
        QCOMPARE(m_server.shown.constFirst().title, text("last"));
        QVERIFY(alerted().isEmpty());
    }
};

QTEST_MAIN(tst_run_notification)

#include "tst_run_notification.moc"
