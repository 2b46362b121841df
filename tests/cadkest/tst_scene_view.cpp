// SPDX-License-Identifier: MIT
#include "Scenes.h"
#include "StructuralSimilarity.h"

#include <Text.h>

#include <SceneView.h>

#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

namespace {

int colourCount(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colours.insert(image.pixel(x, y));
        }
    }
    return colours.size();
}

bool hasOpenGl()
{
    return !qEnvironmentVariableIsEmpty("KEST_NEEDS_OPENGL");
}

// With KEST_PICTURES set to a folder, pictures are there to be looked at.
void keep(const QImage& image, const char* name)
{
    const QString folder = qEnvironmentVariable("KEST_PICTURES");
    if (!folder.isEmpty()) {
        image.save(folder + text("/%1.png").arg(text(name)));
    }
}

// What is on the screen, whoever painted it.
QImage shown(const SceneView& view)
{
    return view.screen()->grabWindow(view.winId()).toImage();
}

// Whether the screen shows what software would draw, with smooth edges or, where OpenGL has none,
// without.
bool showsItsFrame(const SceneView& view)
{
    const QImage screen = shown(view);
    Frame frame = view.frame(screen.size());
    frame.isSmooth = true;
    const QImage smooth = pictureOf(frame, view.overlay());
    frame.isSmooth = false;
    const QImage plain = pictureOf(frame, view.overlay());
    return qMax(structuralSimilarity(screen, smooth), structuralSimilarity(screen, plain)) > 0.9;
}

// Drags in two steps, as a hand would.
void drag(QWidget& widget, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
          const QPoint& from, const QPoint& to)
{
    QTest::mousePress(&widget, button, modifiers, from);
    for (const QPoint& point : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, point, widget.mapToGlobal(point), Qt::NoButton, button,
                         modifiers);
        QApplication::sendEvent(&widget, &move);
    }
    QTest::mouseRelease(&widget, button, modifiers, to);
}

} // namespace

class tst_scene_view : public QObject
{
    Q_OBJECT

private:
    static void show(SceneView& view, const Scene& scene)
    {
        view.resize(480, 360);
        view.setScene(scene, text("a scene"));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }

private Q_SLOTS:
    void showsAScene()
    {
        SceneView view;
        QCOMPARE(view.rendering(), Rendering::Software);
        show(view, sceneOfDeck(Decks::thickCross));
        QVERIFY(colourCount(view.grab().toImage()) > 10);
        QVERIFY(colourCount(view.picture()) > 10);
        QCOMPARE(view.picture().size(), view.size() * view.devicePixelRatioF());
    }

    void theMouseTurnsMovesAndZooms()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        const QSignalSpy changes(&view, &SceneView::cameraChanged);
        const Camera first = view.camera();

        drag(view, Qt::LeftButton, Qt::NoModifier, {100, 100}, {140, 120});
        QVERIFY(view.camera().orientation() != first.orientation());
        QCOMPARE(view.camera().middle(), first.middle());
        QCOMPARE(changes.size(), 2);

        const Camera second = view.camera();
        drag(view, Qt::RightButton, Qt::NoModifier, {100, 100}, {140, 120});
        QCOMPARE(view.camera().orientation(), second.orientation());
        QVERIFY(view.camera().middle() != second.middle());

        QWheelEvent wheel({200, 200}, view.mapToGlobal(QPoint(200, 200)), {}, {0, 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &wheel);
        QVERIFY(view.camera().height() < second.height());
    }

    void keysMoveTheCameraAndOthersPass()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        const Camera first = view.camera();
        QTest::keyClick(&view, Qt::Key_Left);
        QVERIFY(view.camera().orientation() != first.orientation());
        QTest::keyClick(&view, Qt::Key_7);
        const QVector3D z(0, 0, 1);
        QVERIFY((view.camera().orientation().rotatedVector(z) - z).length() < 1e-5F);
        QKeyEvent unknown(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QApplication::sendEvent(&view, &unknown);
        QVERIFY(!unknown.isAccepted());
    }

    void theUsersViewIsKept()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        const double fitted = view.camera().height();
        view.resize(200, 360); // nobody has zoomed: it still fits
        QTRY_VERIFY(view.camera().height() != fitted);
        QTest::keyClick(&view, Qt::Key_Plus);
        const Camera chosen = view.camera();
        view.setScene(sceneOfDeck(Decks::helix), text("another"));
        QCOMPARE(view.camera().height(), chosen.height());
        view.resize(480, 360);
        QCOMPARE(view.camera().height(), chosen.height());
        QTest::keyClick(&view, Qt::Key_Home);
        QVERIFY(view.camera().height() != chosen.height());
    }

    void comesToRestSmoothly()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        QTest::keyClick(&view, Qt::Key_Left);
        const QImage moving = view.grab().toImage();
        QVERIFY(!view.frame(view.size()).isSmooth);
        QTRY_VERIFY(view.frame(view.size()).isSmooth);
        QVERIFY(colourCount(view.grab().toImage()) > colourCount(moving));
        QTest::keyClick(&view, Qt::Key_Left);
        QVERIFY(!view.frame(view.size()).isSmooth);
    }

    void facesAreDisplaced()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        const QImage usual = view.picture();
        view.setFaceDisplacement(0);
        const QImage none = view.picture();
        QVERIFY(none != usual);
        view.setFaceDisplacement(-5);
        QCOMPARE(view.picture(), none);
        view.setFaceDisplacement(32);
        const QImage most = view.picture();
        QVERIFY(most != none);
        view.setFaceDisplacement(1000);
        QCOMPARE(view.picture(), most);
    }

    void radiiCanBeTrue()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::yagi));
        const QImage readable = view.picture();
        view.setThickness(Thickness::True);
        QVERIFY(view.picture() != readable);
        view.setThickness(Thickness::Readable);
        QCOMPARE(view.picture(), readable);
    }

    void coloursFollowThePalette()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        QPalette palette = view.palette();
        palette.setColor(QPalette::Base, Qt::white);
        view.setPalette(palette);
        const QColor light = view.picture().pixelColor(240, 5);
        palette.setColor(QPalette::Base, Qt::black);
        view.setPalette(palette);
        const QColor dark = view.picture().pixelColor(240, 5);
        QVERIFY(light.lightness() > 200);
        QVERIFY(dark.lightness() < 60);
    }

    void hardwareIsUsedWhereItCanBe()
    {
        SceneView view;
        show(view, sceneOfDeck(Decks::thickCross));
        const QImage bySoftware = view.picture();
        const QString error = view.setRendering(Rendering::Hardware);
        if (!hasOpenGl()) {
            QVERIFY(!error.isEmpty());
            QCOMPARE(view.rendering(), Rendering::Software);
        } else {
            QCOMPARE(error, QString());
            QCOMPARE(view.rendering(), Rendering::Hardware);
            keep(shown(view), "by hardware");
            keep(bySoftware, "by software");
            QTRY_VERIFY(showsItsFrame(view));
            QTest::keyClick(&view, Qt::Key_7);
            QTRY_VERIFY(showsItsFrame(view));
            QVERIFY(structuralSimilarity(shown(view), bySoftware) < 0.5);
            view.setScene(sceneOfDeck(Decks::helix), text("another"));
            view.lookFrom(Direction::Isometric);
            QTRY_VERIFY(showsItsFrame(view));
            QCOMPARE(view.setRendering(Rendering::Software), QString());
            QCOMPARE(view.rendering(), Rendering::Software);
        }
        view.lookFrom(Direction::Isometric);
        QTest::keyClick(&view, Qt::Key_Left);
        QVERIFY(colourCount(view.grab().toImage()) > 10);
    }

    void tenThousandWiresAreShown()
    {
        SceneView view;
        show(view, net(10000));
        view.resize(1280, 800);
        QVERIFY(view.overlay().lines.join(QLatin1Char(' ')).contains(text("segments")));
        const QImage picture = view.picture();
        keep(picture, "ten thousand wires");
        QVERIFY(colourCount(picture) > 100);
    }
};

QTEST_MAIN(tst_scene_view)
#include "tst_scene_view.moc"
