// SPDX-License-Identifier: MIT
#include "Scenes.h"
#include "StructuralSimilarity.h"

#include <Text.h>

#include <HardwareRenderer.h>
#include <SoftwareRenderer.h>

#include <QDir>
#include <QtTest>

namespace {

// Two rasterisers may differ in single pixels along edges: which pixel a line takes whose middle it
// passes exactly, or what the last digit of a depth says. Measured, that costs up to 0.03. The
// smallest of the faults that faultsAreSeen() looks at costs far more.
constexpr double leastSimilarity = 0.95;

const QSize pictureSize(480, 360);

// With KEST_PICTURES set to a folder, what was compared is there to be looked at.
void keep(const QImage& image, const QString& name)
{
    const QString folder = qEnvironmentVariable("KEST_PICTURES");
    if (!folder.isEmpty() && QDir().mkpath(folder)) {
        image.save(folder + QLatin1Char('/') + name + text(".png"));
    }
}

Frame closeUp(Frame frame, double factor)
{
    frame.camera.zoom(factor);
    return frame;
}

Frame withMesh(Frame frame, const std::function<void(SceneMesh&)>& change)
{
    auto mesh = std::make_shared<SceneMesh>(*frame.mesh);
    change(*mesh);
    frame.mesh = mesh;
    return frame;
}

Frame withoutEdges(const Frame& frame)
{
    return withMesh(frame, [](SceneMesh& mesh) {
        mesh.ribs.clear();
        mesh.rings.clear();
    });
}

// With all points equally far away nothing hides anything any more.
Frame withoutDepth(const Frame& frame)
{
    const QQuaternion orientation = frame.camera.orientation();
    return withMesh(frame, [&](SceneMesh& mesh) {
        for (QVector3D& point : mesh.points) {
            QVector3D seen = orientation.rotatedVector(point);
            seen.setZ(0);
            point = orientation.conjugated().rotatedVector(seen);
        }
    });
}

Frame turned(Frame frame, double degrees)
{
    frame.camera.turn({qDegreesToRadians(degrees), 0});
    return frame;
}

Frame raised(Frame frame, double degrees)
{
    frame.camera.turn({0, qDegreesToRadians(degrees)});
    return frame;
}

Frame displaced(Frame frame, int displacement)
{
    frame.faceDisplacement = displacement;
    return frame;
}

} // namespace

class tst_renderers : public QObject
{
    Q_OBJECT

private:
    QImage hardware(const Frame& frame) { return m_hardware->render(frame); }
    QImage software(const Frame& frame) { return m_software.render(frame); }

    SoftwareRenderer m_software;
    std::unique_ptr<HardwareRenderer> m_hardware;

private Q_SLOTS:
    void initTestCase()
    {
        m_hardware = std::make_unique<HardwareRenderer>();
        if (!m_hardware->error().isEmpty() && qEnvironmentVariableIsEmpty("KEST_NEEDS_OPENGL")) {
            const QString reason = text("No OpenGL to compare with: ") + m_hardware->error();
            QTest::qSkip(qPrintable(reason), __FILE__, __LINE__);
            return;
        }
        QVERIFY2(m_hardware->error().isEmpty(), qPrintable(m_hardware->error()));
        qInfo("OpenGL by %s", qPrintable(m_hardware->device()));
    }

    void cleanupTestCase() { m_hardware.reset(); }

    void bothDrawTheSamePicture_data()
    {
        QTest::addColumn<Frame>("frame");
        const QSize size = pictureSize;
        const auto frame = [&](const char* deck, Direction direction) {
            return frameOf(sceneOfDeck(deck), direction, size);
        };
        QTest::newRow("thick cross") << frame(Decks::thickCross, Direction::Isometric);
        QTest::newRow("thick cross near")
            << closeUp(frame(Decks::thickCross, Direction::Isometric), 3);
        QTest::newRow("thick cross from x") << frame(Decks::thickCross, Direction::X);
        QTest::newRow("thick cross far") << closeUp(frame(Decks::thickCross, Direction::Z), 0.1);
        QTest::newRow("thick cross smooth") << [&] {
            Frame smooth = frame(Decks::thickCross, Direction::Isometric);
            smooth.isSmooth = true;
            return smooth;
        }();
        QTest::newRow("thick cross not displaced")
            << displaced(frame(Decks::thickCross, Direction::Isometric), 0);
        QTest::newRow("thick cross most displaced")
            << displaced(frame(Decks::thickCross, Direction::Isometric), 32);
        QTest::newRow("yagi") << frame(Decks::yagi, Direction::Isometric);
        QTest::newRow("yagi near") << closeUp(frame(Decks::yagi, Direction::Isometric), 30);
        QTest::newRow("helix and arc") << frame(Decks::helix, Direction::Isometric);
        QTest::newRow("helix and arc near") << closeUp(frame(Decks::helix, Direction::Y), 4);
        QTest::newRow("monopole over ground") << frame(Decks::monopole, Direction::Isometric);
        QTest::newRow("monopole from below") << raised(frame(Decks::monopole, Direction::Y), -20);
        QTest::newRow("net") << frameOf(net(2000), Direction::Isometric, size);
        QTest::newRow("dark") << [&] {
            Frame dark = frame(Decks::thickCross, Direction::Isometric);
            dark.colours = SceneColours::dark();
            return dark;
        }();
        QTest::newRow("nothing") << frameOf(Scene(), Direction::Isometric, size);
    }

    void bothDrawTheSamePicture()
    {
        QFETCH(Frame, frame);
        const QImage byHardware = hardware(frame);
        const QImage bySoftware = software(frame);
        keep(byHardware, text(QTest::currentDataTag()) + text(" hardware"));
        keep(bySoftware, text(QTest::currentDataTag()) + text(" software"));
        QCOMPARE(byHardware.size(), frame.size);
        QCOMPARE(bySoftware.size(), frame.size);
        const double similarity = structuralSimilarity(byHardware, bySoftware);
        qInfo("similarity %.4f", similarity);
        QVERIFY2(similarity >= leastSimilarity, qPrintable(QString::number(similarity)));
    }

    void faultsAreSeen_data()
    {
        QTest::addColumn<Frame>("right");
        QTest::addColumn<Frame>("wrong");
        const Frame cross =
            frameOf(sceneOfDeck(Decks::thickCross), Direction::Isometric, pictureSize);
        QTest::newRow("camera turned by two degrees") << cross << turned(cross, 2);
        QTest::newRow("another direction")
            << cross << frameOf(sceneOfDeck(Decks::thickCross), Direction::X, pictureSize);
        QTest::newRow("without edges") << cross << withoutEdges(cross);
        QTest::newRow("without depth test") << cross << withoutDepth(cross);
        QTest::newRow("without displacement") << cross << displaced(cross, 0);
        QTest::newRow("too much displacement") << cross << displaced(cross, 32);
    }

    void faultsAreSeen()
    {
        QFETCH(Frame, right);
        QFETCH(Frame, wrong);
        keep(software(wrong), text("fault ") + text(QTest::currentDataTag()));
        for (const double similarity : {structuralSimilarity(hardware(right), software(wrong)),
                                        structuralSimilarity(hardware(wrong), software(right))}) {
            qInfo("similarity %.4f", similarity);
            QVERIFY2(similarity < leastSimilarity - 0.03, qPrintable(QString::number(similarity)));
        }
    }
};

QTEST_MAIN(tst_renderers)
#include "tst_renderers.moc"
