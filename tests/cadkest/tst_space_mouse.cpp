// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <SceneView.h>

#include <QAbstractEventDispatcher>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <array>

namespace {

constexpr int motion = 0;
constexpr int buttonPress = 1;

using Message = std::array<qint32, 8>;

QByteArray bytesOf(const Message& message)
{
    return QByteArray(reinterpret_cast<const char*>(message.data()), int(sizeof(message)));
}

} // namespace

/// Plays the daemon that the library for 3D mice talks to.
class tst_space_mouse : public QObject
{
    Q_OBJECT

private:
    QLocalSocket* connectView()
    {
        m_view = std::make_unique<SceneView>();
        m_view->resize(400, 300);
        m_view->setScene(sceneOfDeck(Decks::yagi), QString());
        return m_server->waitForNewConnection(5000) ? m_server->nextPendingConnection() : nullptr;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QLocalServer> m_server;
    std::unique_ptr<SceneView> m_view;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        const QString socket = m_folder->filePath(QStringLiteral("spnav"));
        qputenv("SPNAV_SOCKET", socket.toLocal8Bit());
        m_server = std::make_unique<QLocalServer>();
        QVERIFY(m_server->listen(socket));
    }

    void cleanup()
    {
        m_view.reset();
        m_server.reset();
    }

    void withoutADaemonThereIsNoMouse()
    {
        m_server.reset();
        const SceneView view;
        QVERIFY(!view.hasSpaceMouse());
    }

    void theSceneFollowsTheCap()
    {
        QLocalSocket* daemon = connectView();
        QVERIFY(daemon);
        QVERIFY(m_view->hasSpaceMouse());
        const Camera first = m_view->camera();
        daemon->write(bytesOf({motion, 0, 0, -100, 0, 0, 0, 16}));
        daemon->flush();
        QTRY_VERIFY(m_view->camera().height() < first.height()); // pulled towards the user
        QCOMPARE(m_view->camera().orientation(), first.orientation());
        daemon->write(bytesOf({motion, 0, 0, 0, 0, 100, 0, 16}));
        daemon->flush();
        QTRY_VERIFY(m_view->camera().orientation() != first.orientation());
    }

    void sensitivityCounts()
    {
        QLocalSocket* daemon = connectView();
        QVERIFY(daemon);
        std::array<double, 2> moved = {};
        for (std::size_t i = 0; i < moved.size(); ++i) {
            m_view->setSpaceMouseSensitivity(i == 0 ? 50 : 100);
            const QVector3D before = m_view->camera().middle();
            daemon->write(bytesOf({motion, 100, 0, 0, 0, 0, 0, 16}));
            daemon->flush();
            QTRY_VERIFY(m_view->camera().middle() != before);
            moved.at(i) = double((m_view->camera().middle() - before).length());
        }
        QVERIFY(qAbs(moved[1] / moved[0] - 2) < 0.01);
    }

    void aButtonFitsTheScene()
    {
        QLocalSocket* daemon = connectView();
        QVERIFY(daemon);
        const double fitted = m_view->camera().height();
        daemon->write(bytesOf({motion, 0, 0, -100, 0, 0, 0, 16}));
        daemon->flush();
        QTRY_VERIFY(m_view->camera().height() < fitted);
        daemon->write(bytesOf({buttonPress, 0, 0, 0, 0, 0, 0, 0}));
        daemon->flush();
        QTRY_COMPARE(m_view->camera().height(), fitted);
    }

    void aDaemonThatGoesIsForgotten()
    {
        QLocalSocket* daemon = connectView();
        QVERIFY(daemon);
        delete daemon;
        m_server.reset();
        // Once its end has been read, the event loop sleeps again instead of spinning.
        int turns = 0;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
                [&turns] { ++turns; });
        QTest::qWait(
            300); // in which little may happen: a loop that spins makes many thousand turns
        QVERIFY2(turns < 200, qPrintable(QString::number(turns)));
    }
};

QTEST_MAIN(tst_space_mouse)
#include "tst_space_mouse.moc"
