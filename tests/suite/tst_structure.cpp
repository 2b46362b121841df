// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include "Preprocessor.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

// The structure that pre-processing builds has the engine's segments: same order, tags and places.
class tst_structure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void segmentsAreTheEnginesOwn_data();
    void segmentsAreTheEnginesOwn();
};

namespace {

// A segment as the engine lists it: its centre, length and tag.
struct Segment
{
    double x = 0;
    double y = 0;
    double z = 0;
    double length = 0;
    int tag = 0;
};

QVector<Segment> ourSegments(const suite::Structure& structure)
{
    QVector<Segment> result;
    for (const suite::Wire& wire : structure.wires) {
        for (int i = 1; i < wire.points.size(); ++i) {
            const suite::Point& from = wire.points.at(i - 1);
            const suite::Point& to = wire.points.at(i);
            result.append({(from.x + to.x) / 2, (from.y + to.y) / 2, (from.z + to.z) / 2,
                           suite::distance(from, to), wire.tag});
        }
    }
    return result;
}

QVector<Segment> engineSegments(const QByteArray& output)
{
    QVector<Segment> result;
    bool isInTable = false;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines) {
        isInTable =
            (isInTable || line.contains("SEGMENTATION DATA")) && !line.contains("DATA CARD");
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (isInTable && fields.size() == 12 && fields.at(0).toInt() > 0) {
            result.append({fields.at(1).toDouble(), fields.at(2).toDouble(),
                           fields.at(3).toDouble(), fields.at(4).toDouble(),
                           fields.at(11).toInt()});
        }
    }
    return result;
}

bool isNear(double left, double right)
{
    return qAbs(left - right) < 2e-4;
}

} // namespace

void tst_structure::segmentsAreTheEnginesOwn_data()
{
    QTest::addColumn<QString>("cards");
    QTest::addColumn<int>("count");
    const auto add = [](const char* name, const char* cards, int count) {
        QTest::newRow(name) << QString::fromLatin1(cards) << count;
    };
    // clang-format off
    add("wire",               "", 21);
    add("tapered wire",       "GW 2 9 1 0 0 1 0.5 1 0\nGC 0 0 1.2 0.001 0.002\n", 30);
    add("arc",                "GA 2 8 0.3 10 170 0.001\n", 29);
    add("helix",              "GH 2 20 0.1 0.4 0.2 0.3 0.2 0.3 0.001\n", 41);
    add("moved",              "GM 0 0 30 40 50 1 2 3\n", 21);
    add("moved, new tags",    "GM 5 0 0 0 0 1 2 3\n", 21);
    add("copied",             "GM 1 3 10 20 30 0.5 0.4 0.3\n", 84);
    add("copied from a tag",  "GW 7 5 1 0 0 1 0 1 0.001\nGM 10 2 0 0 45 0 0 0 7\n", 36);
    add("moved from a tag",   "GW 7 5 1 0 0 1 0 1 0.001\nGM 10 0 0 0 45 0 0 0 7\n", 26);
    add("turned",             "GM 0 0 0 0 0 1 0 0\nGR 2 4\n", 84);
    add("mirrored in x",      "GM 0 0 0 0 0 1 1 1\nGX 3 100\n", 42);
    add("mirrored in y",      "GM 0 0 0 0 0 1 1 1\nGX 3 010\n", 42);
    add("mirrored in z",      "GM 0 0 0 0 0 1 1 1\nGX 3 001\n", 42);
    add("mirrored in all",    "GM 0 0 0 0 0 1 1 1\nGX 1 111\n", 168);
    add("scaled",             "GM 0 0 0 0 0 1 1 1\nGS 0 0 0.5\n", 21);
    add("untagged copies",    "GW 0 4 2 0 0 2 0 1 0.001\nGM 1 1 0 0 0 1 1 0\n", 50);
    // clang-format on
}

void tst_structure::segmentsAreTheEnginesOwn()
{
    QFETCH(QString, cards);
    QFETCH(int, count);
    QStringList deck = dipoleCards();
    deck[3].prepend(cards);
    // Any segment will do for the source; tags differ from row to row.
    deck[5] = QStringLiteral("EX 0 0 11 0 1 0");
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), QStringLiteral("s.nec"), deckOf(deck)).isEmpty());
    const QStringList arguments = {QStringLiteral("-i"), QStringLiteral("s.nec"),
                                   QStringLiteral("-o"), QStringLiteral("s.out")};
    QCOMPARE(runSuite(QStringLiteral("nec2c"), arguments, folder.path()).exitCode, 0);

    const suite::Preprocessor checked(deckOf(deck));
    const QVector<Segment> ours = ourSegments(checked.model().structure);
    const QVector<Segment> theirs =
        engineSegments(readFile(folder.filePath(QStringLiteral("s.out"))));

    QCOMPARE(theirs.size(), count);
    QCOMPARE(ours.size(), count);
    for (int i = 0; i < count; ++i) {
        const Segment& our = ours.at(i);
        const Segment& their = theirs.at(i);
        QCOMPARE(our.tag, their.tag);
        QVERIFY2(isNear(our.x, their.x) && isNear(our.y, their.y) && isNear(our.z, their.z) &&
                     isNear(our.length, their.length),
                 qPrintable(QStringLiteral("segment %1").arg(i + 1)));
    }
}

QTEST_GUILESS_MAIN(tst_structure)
#include "tst_structure.moc"
