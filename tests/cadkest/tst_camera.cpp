// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <Camera.h>
#include <SpaceMotion.h>
#include <ViewControls.h>

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

const QSize viewSize(800, 600);

// Where a point of the mesh is in the picture, in pixels to the right and down.
QPointF place(const Camera& camera, const QVector3D& point)
{
    const QVector3D device = camera.projection(viewSize, 2).map(point);
    return {(double(device.x()) + 1) / 2 * viewSize.width(),
            (1 - double(device.y())) / 2 * viewSize.height()};
}

float depth(const Camera& camera, const QVector3D& point)
{
    return camera.projection(viewSize, 2).map(point).z();
}

bool isNear(const QPointF& left, const QPointF& right, double tolerance = 0.05)
{
    const QPointF difference = left - right;
    return std::hypot(difference.x(), difference.y()) <= tolerance;
}

Camera seenFrom(Direction direction)
{
    Camera camera;
    camera.lookFrom(direction);
    return camera;
}

// Which way an axis points in the picture: to the right, up, towards the viewer.
QVector3D seen(const Camera& camera, const QVector3D& axis)
{
    return camera.orientation().rotatedVector(axis);
}

bool isNear(const QVector3D& left, const QVector3D& right)
{
    return (left - right).length() < 1e-4F;
}

const QVector3D x(1, 0, 0);
const QVector3D y(0, 1, 0);
const QVector3D z(0, 0, 1);
const QVector3D rightwards(1, 0, 0);
const QVector3D upwards(0, 1, 0);
const QVector3D toViewer(0, 0, 1);

SceneMesh meshOfYagi()
{
    return meshOf(sceneOfDeck(Decks::yagi), Thickness::Readable);
}

} // namespace

class tst_camera : public QObject
{
    Q_OBJECT

private:
    const SceneMesh m_mesh = meshOfYagi();

    bool press(Camera& camera, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return ViewControls::key(camera, key, modifiers, m_mesh, viewSize);
    }

private Q_SLOTS:
    void directionsAreThoseOfTheAxes()
    {
        QVERIFY(isNear(seen(seenFrom(Direction::X), x), toViewer));
        QVERIFY(isNear(seen(seenFrom(Direction::X), y), rightwards));
        QVERIFY(isNear(seen(seenFrom(Direction::X), z), upwards));
        QVERIFY(isNear(seen(seenFrom(Direction::Y), y), -toViewer));
        QVERIFY(isNear(seen(seenFrom(Direction::Y), x), rightwards));
        QVERIFY(isNear(seen(seenFrom(Direction::Y), z), upwards));
        QVERIFY(isNear(seen(seenFrom(Direction::Z), z), toViewer));
        QVERIFY(isNear(seen(seenFrom(Direction::Z), x), rightwards));
        QVERIFY(isNear(seen(seenFrom(Direction::Z), y), upwards));
        const Camera corner = seenFrom(Direction::Isometric);
        QVERIFY(seen(corner, z).z() > 0.2F); // from above
        QVERIFY(seen(corner, z).y() > 0.5F); // upright
        QVERIFY(std::abs(seen(corner, z).x()) < 1e-5F);
        QVERIFY(seen(corner, x).x() > 0 && seen(corner, y).x() > 0);
    }

    void whatIsNearerIsDrawnInFront()
    {
        const Camera camera = seenFrom(Direction::Z);
        QVERIFY(depth(camera, z) < depth(camera, -z));
        QVERIFY(std::abs(depth(camera, z * 2)) < 1);
        QVERIFY(std::abs(depth(camera, z * -2)) < 1);
    }

    void fittingShowsEverything_data()
    {
        QTest::addColumn<Direction>("direction");
        QTest::addColumn<QByteArray>("deck");
        for (const auto direction :
             {Direction::Isometric, Direction::X, Direction::Y, Direction::Z}) {
            for (const char* deck : {Decks::yagi, Decks::monopole, Decks::helix}) {
                QTest::addRow("%d %.30s", int(direction), deck + 3)
                    << direction << QByteArray(deck);
            }
        }
    }

    void fittingShowsEverything()
    {
        QFETCH(Direction, direction);
        QFETCH(QByteArray, deck);
        const auto mesh = meshOf(sceneOfDeck(deck), Thickness::Readable);
        Camera camera = seenFrom(direction);
        camera.fit(mesh, viewSize);
        QRectF bounds;
        for (const QVector3D& point : mesh.points) {
            const QPointF at = place(camera, point);
            bounds |= QRectF(at, QSizeF(1e-3, 1e-3));
            QVERIFY(QRectF(QPointF(), viewSize).contains(at));
        }
        // Large, and in the middle.
        QVERIFY(bounds.width() > 0.85 * viewSize.width() ||
                bounds.height() > 0.85 * viewSize.height());
        QVERIFY(isNear(bounds.center(), QPointF(400, 300), 1));
    }

    void turningKeepsUpright()
    {
        Camera camera = seenFrom(Direction::Y);
        camera.turn({0.3, 0});
        QVERIFY(isNear(seen(camera, z), upwards));
        QVERIFY(seen(camera, -y).x() > 0.25F); // what is in front goes to the right
        camera.turn({0, 0.4});
        QVERIFY(seen(camera, z).z() > 0.3F); // dragged down, the top comes into view
        for (int i = 0; i < 50; ++i) {
            camera.turn({0.1, 0.1});
        }
        QVERIFY(isNear(seen(camera, z), toViewer)); // as far as the pole
        for (int i = 0; i < 100; ++i) {
            camera.turn({0, -0.1});
        }
        QVERIFY(isNear(seen(camera, z), -toViewer));
        camera.turn({0, -3});
        QVERIFY(isNear(seen(camera, z), -toViewer));
        QVERIFY(std::abs(camera.orientation().length() - 1) < 1e-5F);
    }

    void panningFollowsThePointer()
    {
        Camera camera = seenFrom(Direction::Isometric);
        const QVector3D point(0.3F, -0.2F, 0.5F);
        const QPointF before = place(camera, point);
        camera.pan({37, -21}, viewSize);
        QVERIFY(isNear(place(camera, point), before + QPointF(37, -21)));
    }

    void zoomingKeepsThePlaceUnderThePointer()
    {
        Camera camera = seenFrom(Direction::Isometric);
        const QVector3D point(0.3F, -0.2F, 0.5F);
        const QPointF pointer = place(camera, point);
        const double scale = camera.pixelsPerUnit(viewSize);
        camera.zoom(3, pointer, viewSize);
        QVERIFY(isNear(place(camera, point), pointer, 0.5));
        QCOMPARE(camera.pixelsPerUnit(viewSize), scale * 3);
    }

    void nobodyGetsLost()
    {
        Camera camera;
        for (int i = 0; i < 2000; ++i) {
            camera.zoom(0.5);
            camera.pan({1e6, 1e6}, viewSize);
        }
        QVERIFY(camera.height() <= 100);
        QVERIFY(camera.middle().length() < 101);
        for (int i = 0; i < 2000; ++i) {
            camera.zoom(2);
        }
        QVERIFY(camera.height() >= 1e-5);
    }

    void keysMoveTheCamera()
    {
        Camera camera = seenFrom(Direction::Y);
        QVERIFY(press(camera, Qt::Key_Right));
        QVERIFY(std::abs(seen(camera, -y).x() - float(std::sin(M_PI / 18))) < 1e-4F);
        QVERIFY(press(camera, Qt::Key_Left));
        QVERIFY(isNear(seen(camera, -y), toViewer));
        QVERIFY(press(camera, Qt::Key_Down));
        QVERIFY(seen(camera, z).z() > 0.1F);
        QVERIFY(press(camera, Qt::Key_Up));
        QVERIFY(isNear(seen(camera, -y), toViewer));

        const QPointF before = place(camera, x);
        QVERIFY(press(camera, Qt::Key_Right, Qt::ShiftModifier));
        QVERIFY(isNear(place(camera, x), before + QPointF(60, 0)));
        QVERIFY(press(camera, Qt::Key_Down, Qt::ShiftModifier));
        QVERIFY(isNear(place(camera, x), before + QPointF(60, 60)));

        const double height = camera.height();
        QVERIFY(press(camera, Qt::Key_Plus, Qt::ShiftModifier));
        QVERIFY(camera.height() < height);
        QVERIFY(press(camera, Qt::Key_Minus));
        QCOMPARE(camera.height(), height);
        QVERIFY(press(camera, Qt::Key_Equal));
        QVERIFY(camera.height() < height);

        QVERIFY(press(camera, Qt::Key_Home));
        Camera fitted = seenFrom(Direction::Y);
        fitted.fit(m_mesh, viewSize);
        QVERIFY(std::abs(camera.height() / fitted.height() - 1) < 1e-5);
        QVERIFY(isNear(camera.middle(), fitted.middle()));
        QVERIFY(isNear(seen(camera, -y), toViewer)); // the direction stays
    }

    void digitsChooseDirections_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Direction>("direction");
        QTest::newRow("0") << int(Qt::Key_0) << Direction::Isometric;
        QTest::newRow("1") << int(Qt::Key_1) << Direction::Y;
        QTest::newRow("3") << int(Qt::Key_3) << Direction::X;
        QTest::newRow("7") << int(Qt::Key_7) << Direction::Z;
    }

    void digitsChooseDirections()
    {
        QFETCH(int, key);
        QFETCH(Direction, direction);
        Camera camera;
        camera.turn({1, 0.3});
        QVERIFY(press(camera, key, Qt::KeypadModifier));
        QVERIFY(isNear(seen(camera, x), seen(seenFrom(direction), x)));
        QVERIFY(isNear(seen(camera, z), seen(seenFrom(direction), z)));
    }

    void otherKeysAreLeftToOthers()
    {
        Camera camera;
        for (const int key : {Qt::Key_A, Qt::Key_F5, Qt::Key_Escape, Qt::Key_2}) {
            QVERIFY(!press(camera, key));
        }
        for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            QVERIFY(!press(camera, Qt::Key_Left, modifier));
        }
        QCOMPARE(camera.orientation(), Camera().orientation());
        QCOMPARE(camera.height(), Camera().height());
    }

    void draggingTurnsOrMoves()
    {
        using ViewControls::drag;
        Camera turned = seenFrom(Direction::Y);
        drag(turned, {20, 0}, Qt::LeftButton, Qt::NoModifier, viewSize);
        QVERIFY(seen(turned, -y).x() > 0.1F);
        QVERIFY(isNear(turned.middle(), QVector3D()));

        const QPointF before = place(seenFrom(Direction::Y), x);
        const auto moves = [&](Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
            Camera camera = seenFrom(Direction::Y);
            drag(camera, {20, 10}, buttons, modifiers, viewSize);
            return isNear(place(camera, x), before + QPointF(20, 10));
        };
        QVERIFY(moves(Qt::LeftButton, Qt::ShiftModifier));
        QVERIFY(moves(Qt::MiddleButton, Qt::NoModifier));
        QVERIFY(moves(Qt::RightButton, Qt::NoModifier));
    }

    void theWheelZooms()
    {
        Camera camera;
        const double height = camera.height();
        ViewControls::wheel(camera, 120, {400, 300}, viewSize);
        QVERIFY(qFuzzyCompare(camera.height(), height / 1.25));
        ViewControls::wheel(camera, -240, {0, 0}, viewSize);
        QVERIFY(qFuzzyCompare(camera.height(), height * 1.25));
    }

    void spaceMouseMovesTheScene_data()
    {
        QTest::addColumn<QVector3D>("move");
        QTest::addColumn<QPointF>("moved");
        QTest::newRow("right") << QVector3D(350, 0, 0) << QPointF(1, 0);
        QTest::newRow("up") << QVector3D(0, 350, 0) << QPointF(0, -1);
        QTest::newRow("left down") << QVector3D(-350, -350, 0) << QPointF(-1, 1);
    }

    void spaceMouseMovesTheScene()
    {
        QFETCH(QVector3D, move);
        QFETCH(QPointF, moved);
        Camera camera = seenFrom(Direction::Y);
        const QPointF before = place(camera, x);
        apply(SpaceMotion{move, {}, 100}, 50, camera, viewSize);
        const QPointF difference = place(camera, x) - before;
        QVERIFY(isNear(difference, moved * 0.07 * 600, 0.1));
    }

    void spaceMouseTurnsTheSceneAroundEachAxis()
    {
        const auto turnedBy = [](const QVector3D& turn) {
            Camera camera = seenFrom(Direction::Z);
            apply(SpaceMotion{{}, turn, 100}, 50, camera, viewSize);
            return camera;
        };
        QVERIFY(seen(turnedBy({350, 0, 0}), y).z() > 0.1F);
        QVERIFY(seen(turnedBy({0, 350, 0}), z).x() > 0.1F);
        QVERIFY(seen(turnedBy({0, 0, 350}), x).y() > 0.1F);
        QVERIFY(isNear(seen(turnedBy({0, 0, 350}), z), toViewer));
    }

    void pulledTowardsTheUserTheSceneGrows()
    {
        Camera camera;
        const double height = camera.height();
        apply(SpaceMotion{{0, 0, 350}, {}, 100}, 50, camera, viewSize);
        QVERIFY(camera.height() < height);
        apply(SpaceMotion{{0, 0, -350}, {}, 100}, 50, camera, viewSize);
        QVERIFY(qFuzzyCompare(camera.height(), height));
    }

    void sensitivityScales()
    {
        const auto moved = [](double sensitivity, int milliseconds) {
            Camera camera = seenFrom(Direction::Y);
            const QPointF before = place(camera, x);
            apply(SpaceMotion{{350, 0, 0}, {}, milliseconds}, sensitivity, camera, viewSize);
            return place(camera, x).x() - before.x();
        };
        const double usual = moved(50, 20);
        QVERIFY(usual > 1);
        QVERIFY(std::abs(moved(100, 20) - 2 * usual) < 0.05);
        QVERIFY(std::abs(moved(25, 20) - usual / 2) < 0.05);
        QCOMPARE(moved(0, 20), 0.0);
        QCOMPARE(moved(-50, 20), 0.0);
        QCOMPARE(moved(std::numeric_limits<double>::quiet_NaN(), 20), 0.0);
        QVERIFY(std::isfinite(moved(1e308, 20)));
        QVERIFY(std::abs(moved(50, 40) - 2 * usual) < 0.05);
        QCOMPARE(moved(50, 60000), moved(50, 100)); // a rest before it does not count
        QCOMPARE(moved(50, -5), 0.0);
    }
};

QTEST_GUILESS_MAIN(tst_camera)
#include "tst_camera.moc"
