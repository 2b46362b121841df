// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <Text.h>

#include <ModelReader.h>
#include <RoundLength.h>
#include <SceneMesh.h>

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <set>

namespace {

// A deck of one wire of ten segments, tag 7, and one of five, tag 8, with more control cards.
QByteArray deckWith(const QByteArray& cards, const QByteArray& end = "GE 0")
{
    return "CE\n"
           "GW 7 10 0 0 0 1 0 0 0.001\n"
           "GW 8 5 0 0 1 1 0 1 0.001\n" +
           end +
           "\n"
           "FR 0 1 0 0 30 0\n" +
           cards + "XQ\nEN\n";
}

QString marksText(const Scene& scene)
{
    QStringList result;
    for (const SegmentMark& mark : scene.marks) {
        const char* kind = mark.kind == MarkKind::Feed   ? "feed"
                           : mark.kind == MarkKind::Load ? "load"
                                                         : "distributed";
        result.append(text("%1 %2/%3").arg(text(kind)).arg(mark.wire).arg(mark.segment));
    }
    return result.join(text(", "));
}

Scene straightWire(double length, double radius, int segments = 1)
{
    Scene scene;
    suite::Wire wire;
    wire.radius = radius;
    for (int i = 0; i <= segments; ++i) {
        wire.points.append({length * (double(i) / segments), 0, 0});
    }
    scene.structure.wires.append(wire);
    return scene;
}

// Every face's corners run anticlockwise around its normal, as seen from its tip.
bool facesOutwards(const SceneMesh& mesh, const MeshFace& face)
{
    const auto at = [&](std::size_t corner) { return mesh.points[face.corners.at(corner)]; };
    const QVector3D across = QVector3D::crossProduct(at(2) - at(0), at(3) - at(1));
    return QVector3D::dotProduct(across.normalized(), face.normal) > 0.9F;
}

float largestCoordinate(const SceneMesh& mesh)
{
    float result = 0;
    for (const QVector3D& point : mesh.points) {
        for (int axis = 0; axis < 3; ++axis) {
            result = std::max(result, std::abs(point[axis]));
        }
    }
    return result;
}

int countOf(const SceneMesh& mesh, Paint paint)
{
    const auto isPaint = [paint](const auto& each) { return each.paint == paint; };
    return int(std::count_if(mesh.tubes.begin(), mesh.tubes.end(), isPaint) +
               std::count_if(mesh.solids.begin(), mesh.solids.end(), isPaint));
}

} // namespace

class tst_scene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cardsMarkSegments_data()
    {
        QTest::addColumn<QByteArray>("cards");
        QTest::addColumn<QString>("marks");
        const auto row = [](const char* name, const char* cards, const char* marks) {
            QTest::newRow(name) << QByteArray(cards) << text(marks);
        };
        row("a source", "EX 0 7 3 0 1 0\n", "feed 0/2");
        row("a source by current slope", "EX 5 8 1 0 1 0\n", "feed 1/0");
        row("a source counted through all", "EX 0 0 12 0 1 0\n", "feed 1/1");
        row("a wave", "EX 1 1 1 0 0 0 0\n", "");
        row("two sources", "EX 0 7 1 0 1 0\nEX 0 8 5 0 1 0\n", "feed 0/0, feed 1/4");
        row("a segment that is not there", "EX 0 7 11 0 1 0\n", "");
        row("segment 0", "EX 0 7 0 0 1 0\n", "");
        row("a tag that is not there", "EX 0 9 1 0 1 0\n", "");
        row("one source by two cards", "EX 0 7 3 0 1 0\nEX 0 7 3 0 1 0\n", "feed 0/2");
        row("a load", "LD 0 8 2 2 50 0 0\n", "load 1/1");
        row("a range of loads", "LD 4 8 2 4 50 0\n", "load 1/1, load 1/2, load 1/3");
        row("a range beyond the end", "LD 4 8 4 9 50 0\n", "load 1/3, load 1/4");
        row("a whole tag", "LD 1 8 0 0 50 0 0\n",
            "load 1/0, load 1/1, load 1/2, load 1/3, load 1/4");
        row("a conductivity", "LD 5 8 1 2 5.8e7\n", "distributed 1/0, distributed 1/1");
        row("series per metre", "LD 2 8 1 1 1 0 0\n", "distributed 1/0");
        row("parallel per metre", "LD 3 8 1 1 1 0 0\n", "distributed 1/0");
        row("loads taken away again", "LD 0 8 2 2 50 0 0\nLD -1\nLD 0 8 3 3 50 0 0\n", "load 1/2");
        row("both", "EX 0 7 3 0 1 0\nLD 0 7 3 3 50 0 0\n", "feed 0/2, load 0/2");
    }

    void cardsMarkSegments()
    {
        QFETCH(QByteArray, cards);
        QFETCH(QString, marks);
        QCOMPARE(marksText(sceneOfDeck(deckWith(cards))), marks);
    }

    void wholeStructuresAreMarkedOnce()
    {
        QByteArray cards;
        for (int i = 0; i < 300; ++i) {
            cards += "LD 5 0 0 0 5.8e7\n";
        }
        const Scene scene = sceneOfDeck(deckWith(cards));
        QCOMPARE(scene.loadCount(), 15);
        QCOMPARE(scene.feedCount(), 0);
    }

    void groundIsKnown_data()
    {
        QTest::addColumn<QByteArray>("end");
        QTest::addColumn<QByteArray>("cards");
        QTest::addColumn<bool>("hasGround");
        QTest::newRow("free space") << QByteArray("GE 0") << QByteArray() << false;
        QTest::newRow("flag 1") << QByteArray("GE 1") << QByteArray() << true;
        QTest::newRow("flag -1") << QByteArray("GE -1") << QByteArray() << true;
        QTest::newRow("perfect") << QByteArray("GE 0") << QByteArray("GN 1\n") << true;
        QTest::newRow("nullified") << QByteArray("GE 0") << QByteArray("GN -1\n") << false;
    }

    void groundIsKnown()
    {
        QFETCH(QByteArray, end);
        QFETCH(QByteArray, cards);
        QFETCH(bool, hasGround);
        QCOMPARE(sceneOfDeck(deckWith(cards, end)).hasGround, hasGround);
    }

    void modelsAreReadAsFarAsPossible()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(text("broken.nec")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("CE\nGW 1 5 0 0 0 1 0 0 0.001\nGW 2 5 0 0 0 0 0 0 0.001\nGE 0\nQX\nEN\n");
        file.close();
        const ReadModel model = readModel(folder.filePath(text("broken")));
        QCOMPARE(model.path, file.fileName());
        QCOMPARE(model.scene.structure.wires.size(), 1);
        QVERIFY(model.errors.join(QLatin1Char('\n')).contains(text(" (line 3")));
        QVERIFY(model.errors.join(QLatin1Char('\n')).contains(text(" (line 5")));

        const ReadModel none = readModel(folder.filePath(text("none.nec")));
        QCOMPARE(none.errors.size(), 1);
        QVERIFY(!none.errors.first().startsWith(text("line")));
        QCOMPARE(none.scene.structure.wires.size(), 0);
    }

    void wiresBecomeHexagonalTubes()
    {
        const SceneMesh mesh = meshOf(straightWire(2, 0.1, 4), Thickness::True);
        QCOMPARE(mesh.tubes.size(), std::size_t(4 * 6 + 4)); // sides and halves of the ends
        QCOMPARE(mesh.cores.size(), std::size_t(4));
        QCOMPARE(mesh.ribs.size(), std::size_t(4 * 6));
        QCOMPARE(mesh.rings.size(), std::size_t(5 * 6));
        QCOMPARE(mesh.metres, 1.0);
        QCOMPARE(largestCoordinate(mesh), 1.0F);
        for (const MeshLine& rib : mesh.ribs) {
            const QVector3D from = mesh.points[rib.from];
            QVERIFY(qFuzzyCompare(QVector2D(from.y(), from.z()).length(), 0.1F));
        }
    }

    void facesShowTheirFrontsOutside()
    {
        Scene scene = sceneOfDeck(Decks::helix);
        scene.marks.append({0, 5, MarkKind::Load});
        scene.hasGround = true;
        const SceneMesh mesh = meshOf(scene, Thickness::True);
        QVERIFY(countOf(mesh, Paint::Feed) > 0 && countOf(mesh, Paint::Load) > 0 &&
                countOf(mesh, Paint::Ground) == 1);
        for (const auto* faces : {&mesh.tubes, &mesh.solids}) {
            for (const MeshFace& face : *faces) {
                QVERIFY(facesOutwards(mesh, face));
            }
        }
    }

    void bendsAreMitred()
    {
        Scene scene;
        suite::Wire wire;
        wire.radius = 0.1;
        wire.points = {{-1, 0, 0}, {0, 0, 0}, {0, 1, 0}};
        scene.structure.wires.append(wire);
        const SceneMesh mesh = meshOf(scene, Thickness::True);
        // Edges along both segments stay as far from the axis as the radius says.
        for (const MeshLine& rib : mesh.ribs) {
            const QVector3D from = mesh.points[rib.from];
            const QVector3D along = (mesh.points[rib.to] - from).normalized();
            const QVector3D corner(1, -1, 0); // where the wire bends, in the mesh's units
            const float distance = QVector3D::crossProduct(from - corner, along).length();
            QVERIFY2(std::abs(distance - 0.2F) < 1e-4F, qPrintable(QString::number(distance)));
        }
    }

    void thinWiresAreDrawnThicker()
    {
        const Scene scene = straightWire(2, 1e-5, 4);
        QCOMPARE(meshOf(scene, Thickness::True).tubes.front().size, 1e-5F);
        const float readable = meshOf(scene, Thickness::Readable).tubes.front().size;
        QVERIFY(readable > 1e-3F);
        // Never so thick that neighbours would touch, nor thinner than they are.
        const float dense =
            meshOf(straightWire(2, 1e-5, 1000), Thickness::Readable).tubes.front().size;
        QVERIFY(dense < 0.5F * 2 / 1000);
        QCOMPARE(meshOf(straightWire(2, 0.3), Thickness::Readable).tubes.front().size, 0.3F);
    }

    void smallThingsAreLeftOut()
    {
        Scene scene = straightWire(2, 0.001, 10);
        scene.structure.wires.append(straightWire(2, 0.1, 2).structure.wires);
        const SceneMesh mesh = meshOf(scene, Thickness::True);
        const std::size_t all = mesh.tubes.size();

        const MeshDetail near(mesh, 1e6);
        QCOMPARE(near.tubes, all);
        QCOMPARE(near.firstCore, mesh.cores.size());
        QCOMPARE(near.ribs, mesh.ribs.size());
        QCOMPARE(near.rings, mesh.rings.size());

        const MeshDetail middle(mesh, 100); // the thin wire has a tenth of a pixel
        QCOMPARE(middle.tubes, std::size_t(2 * 6 + 4));
        QCOMPARE(middle.firstCore, std::size_t(2));
        QCOMPARE(middle.ribs, std::size_t(2 * 6));
        QCOMPARE(middle.rings, mesh.rings.size());

        const MeshDetail far(mesh, 1);
        QCOMPARE(far.tubes, std::size_t(0));
        QCOMPARE(far.firstCore, std::size_t(0));
        QCOMPARE(far.ribs, std::size_t(0));
        QCOMPARE(far.rings, std::size_t(0));
    }

    void hugeTinyAndEmptyStructuresFit_data()
    {
        QTest::addColumn<double>("length");
        QTest::newRow("tiny") << 1e-300;
        QTest::newRow("small") << 1e-9;
        QTest::newRow("large") << 1e9;
        QTest::newRow("huge") << 1.7e308;
    }

    void hugeTinyAndEmptyStructuresFit()
    {
        QFETCH(double, length);
        Scene scene = straightWire(length, length / 100, 3);
        scene.structure.wires.append(straightWire(-length, length / 100, 3).structure.wires);
        scene.hasGround = true;
        const SceneMesh mesh = meshOf(scene, Thickness::Readable);
        QVERIFY(largestCoordinate(mesh) >= 1);
        QVERIFY(mesh.radius < 10);
        for (const QVector3D& point : mesh.points) {
            QVERIFY(std::isfinite(point.length()));
        }
    }

    void nothingIsAPictureToo()
    {
        const SceneMesh mesh = meshOf(Scene(), Thickness::Readable);
        QVERIFY(mesh.tubes.empty());
        QCOMPARE(mesh.outlines.size(), std::size_t(3)); // the axes
        QVERIFY(mesh.radius > 0);
    }

    // Lines in one plane would flicker.
    void axesLieAboveTheGround()
    {
        Scene scene = straightWire(1, 0.01);
        scene.hasGround = true;
        const SceneMesh mesh = meshOf(scene, Thickness::Readable);
        float ground = 0;
        float axes = 0;
        for (const MeshLine& line : mesh.outlines) {
            (line.paint == Paint::Grid ? ground : axes) = mesh.points.at(line.from).z();
        }
        QVERIFY(axes > ground);
        QVERIFY(axes < ground + 0.01F);
    }

    void farOriginsAreLeftOut()
    {
        Scene scene = straightWire(1, 0.01);
        scene.hasGround = true;
        for (suite::Point& point : scene.structure.wires[0].points) {
            point.z += 1000;
        }
        const SceneMesh mesh = meshOf(scene, Thickness::Readable);
        QVERIFY(mesh.outlines.empty());
        QCOMPARE(countOf(mesh, Paint::Ground), 0);
        QVERIFY(mesh.radius < 2);
    }

    void lengthsAreRound_data()
    {
        QTest::addColumn<double>("most");
        QTest::addColumn<double>("round");
        QTest::addColumn<QString>("name");
        QTest::newRow("1") << 1.0 << 1.0 << text("1 m");
        QTest::newRow("1.99") << 1.99 << 1.0 << text("1 m");
        QTest::newRow("2") << 2.0 << 2.0 << text("2 m");
        QTest::newRow("4.9") << 4.9 << 2.0 << text("2 m");
        QTest::newRow("5") << 5.0 << 5.0 << text("5 m");
        QTest::newRow("99") << 99.0 << 50.0 << text("50 m");
        QTest::newRow("0.3") << 0.3 << 0.2 << text("20 cm");
        QTest::newRow("0.006") << 0.006 << 0.005 << text("5 mm");
        QTest::newRow("3e-5") << 3e-5 << 2e-5 << text("20 µm");
        QTest::newRow("7000") << 7000.0 << 5000.0 << text("5 km");
    }

    void lengthsAreRound()
    {
        QFETCH(double, most);
        QFETCH(double, round);
        QFETCH(QString, name);
        QVERIFY(qFuzzyCompare(roundLength(most), round));
        QCOMPARE(lengthText(roundLength(most)), name);
    }
};

QTEST_GUILESS_MAIN(tst_scene)
#include "tst_scene.moc"
