// SPDX-License-Identifier: MIT
#include "Preprocessor.h"
#include "SegmentRefinement.h"
#include "SuiteRun.h"

#include <QtTest>

using suite::Card;
using suite::Point;
using suite::Preprocessor;
using suite::SegmentRefinement;
using suite::Wire;

// What becomes of each card when all segments are divided.
class tst_amrkest_mapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cardIsMapped_data();
    void cardIsMapped();
    void otherCardsStay();
    void factorOneChangesNoNumber();
    void centresStay_data();
    void centresStay();
    void spreadLoadsCoverTheSameLength_data();
    void spreadLoadsCoverTheSameLength();
    void lumpedLoadsKeepTheirSum();
    void commentsAreKept();
    void oneFrequencyTakesThePlaceOfTheRange();
    void refusedCards_data();
    void refusedCards();
    void missingSourceIsRefused();
    void limits_data();
    void limits();
};

namespace {

// Two wires of one tag, copies of them with other tags, and one without a tag.
QStringList structureCards()
{
    return {QStringLiteral("CM A structure"),
            QStringLiteral("CM of several wires"),
            QStringLiteral("CE"),
            QStringLiteral("GW 1 9 0 0 -0.25 0 0 0.25 0.0001"),
            QStringLiteral("GW 1 5 0.3 0 -0.25 0.3 0 0.25 0.0001"),
            QStringLiteral("GM 10 1 0 0 30 1 0 0 1"),
            QStringLiteral("GW 0 4 3 0 0 3 1 0 0.0001"),
            QStringLiteral("GE 0"),
            QStringLiteral("FR 0 3 0 0 290 5"),
            QStringLiteral("EX 0 1 12 0 1 0"),
            QStringLiteral("XQ"),
            QStringLiteral("EN")};
}

// The structure with one more control card behind the source.
QByteArray deckWith(const QString& card)
{
    QStringList cards = structureCards();
    cards.insert(10, card);
    return deckOf(cards);
}

Preprocessor refinedBy(const Preprocessor& checked, int factor)
{
    return Preprocessor(SegmentRefinement(checked.model()).deck(factor));
}

// The segments of a tag, all for tag 0, each by its two ends.
QVector<QPair<Point, Point>> segmentsOf(const suite::Model& model, int tag)
{
    QVector<QPair<Point, Point>> result;
    for (const Wire& wire : model.structure.wires) {
        for (int i = 1; (tag == 0 || wire.tag == tag) && i < wire.points.size(); ++i) {
            result.append({wire.points.at(i - 1), wire.points.at(i)});
        }
    }
    return result;
}

Point centre(const QPair<Point, Point>& segment)
{
    return {(segment.first.x + segment.second.x) / 2, (segment.first.y + segment.second.y) / 2,
            (segment.first.z + segment.second.z) / 2};
}

QVector<Card> cardsOf(const suite::Model& model, const char* mnemonic)
{
    QVector<Card> result;
    for (const Card& card : model.deck.cards) {
        if (card.mnemonic == QLatin1String(mnemonic)) {
            result.append(card);
        }
    }
    return result;
}

} // namespace

void tst_amrkest_mapping::cardIsMapped_data()
{
    QTest::addColumn<QString>("card");
    QTest::addColumn<int>("factor");
    QTest::addColumn<QStringList>("expected");
    const auto add = [](const char* card, int factor, const char* expected) {
        QTest::addRow("%s by %d", card, factor)
            << QString::fromLatin1(card) << factor
            << QString::fromLatin1(expected).split(QLatin1Char('|'));
    };
    add("EX 0 1 1 0 1 0", 3, "EX 0 1 2 0 1 0");
    add("EX 0 1 11 0 1 0", 3, "EX 0 1 32 0 1 0");
    add("EX 0 1 11 0 1 0", 5, "EX 0 1 53 0 1 0");
    add("EX 0 0 20 0 1 0", 7, "EX 0 0 137 0 1 0");
    add("EX 5 1 11 0 1 0", 3, "EX 5 1 31 0 1 0");
    add("EX 1 3 4 0 0 0 0 5 5 0", 3, "EX 1 3 4 0 0 0 0 5 5 0");
    add("LD 5 1 3 5 5.8e7", 3, "LD 5 1 7 15 5.8e7");
    add("LD 5 1 3 0 5.8e7", 3, "LD 5 1 7 9 5.8e7");
    add("LD 2 0 2 4 1 2 3", 5, "LD 2 0 6 20 1 2 3");
    add("LD 3 1 2 2 1 2 3", 3, "LD 3 1 4 6 1 2 3");
    add("LD 5 1 0 0 5.8e7", 3, "LD 5 1 0 0 5.8e7");
    add("LD 4 1 2 2 50 0", 3, "LD 4 1 5 5 50 0");
    add("LD 0 1 2 0 1 2 3", 5, "LD 0 1 8 8 1 2 3");
    add("LD 1 11 2 4 1 2 3", 3, "LD 1 11 5 5 1 2 3|LD 1 11 8 8 1 2 3|LD 1 11 11 11 1 2 3");
    add("LD -1", 3, "LD -1");
    add("NT 1 2 1 4 0 0 1e-3 0 0 0", 3, "NT 1 5 1 11 0 0 1e-3 0 0 0");
    add("TL 1 1 11 14 50 0.3", 3, "TL 1 2 11 41 50 0.3");
    add("CP 1 1 11 2", 5, "CP 1 3 11 8");
    add("PT 0 1 2 4", 3, "PT 0 1 4 12");
    add("PT 0 1 2 2", 3, "PT 0 1 5 5");
    add("PT 1 1 2", 3, "PT 1 1 5");
    add("PT -1", 3, "PT -1");
    add("PT 0 1 0 0", 3, "PT 0 1 0 0");
    add("PQ 0 0 1 9", 3, "PQ 0 0 1 27");
    add("GN 1", 3, "GN 1");
    add("RP 0 10 2 1000 0 0 10 90", 3, "RP 0 10 2 1000 0 0 10 90");
    add("NE 0 2 2 2 1 1 1 0.1 0.1 0.1", 3, "NE 0 2 2 2 1 1 1 0.1 0.1 0.1");
    add("EK", 3, "EK");
}

void tst_amrkest_mapping::cardIsMapped()
{
    QFETCH(QString, card);
    QFETCH(int, factor);
    QFETCH(QStringList, expected);
    const Preprocessor checked(deckWith(card));
    QVERIFY(!checked.findings().hasErrors());
    const QByteArray deck = SegmentRefinement(checked.model()).deck(factor);
    const QStringList lines = QString::fromLatin1(deck).split(QLatin1Char('\n'));
    const int source = lines.indexOf(QRegularExpression(QStringLiteral("EX 0 1 \\d+ 0 1 0")));
    QVERIFY(source > 0);
    QCOMPARE(QStringList(lines.mid(source + 1, expected.size())), expected);
    QCOMPARE(lines.at(source + 1 + expected.size()), QStringLiteral("XQ"));
    QVERIFY(!Preprocessor(deck).findings().hasErrors());
}

void tst_amrkest_mapping::otherCardsStay()
{
    const Preprocessor checked(deckOf(structureCards()));
    const QByteArray deck = SegmentRefinement(checked.model()).deck(3);
    QStringList expected = structureCards();
    expected[3] = QStringLiteral("GW 1 27 0 0 -0.25 0 0 0.25 0.0001");
    expected[4] = QStringLiteral("GW 1 15 0.3 0 -0.25 0.3 0 0.25 0.0001");
    expected[6] = QStringLiteral("GW 0 12 3 0 0 3 1 0 0.0001");
    expected[9] = QStringLiteral("EX 0 1 35 0 1 0");
    QCOMPARE(QString::fromLatin1(deck), QString::fromLatin1(deckOf(expected)));
}

void tst_amrkest_mapping::factorOneChangesNoNumber()
{
    const Preprocessor checked(deckWith(QStringLiteral("LD 5 1 3 5 5.8e7")));
    QCOMPARE(SegmentRefinement(checked.model()).deck(1),
             deckWith(QStringLiteral("LD 5 1 3 5 5.8e7")));
}

void tst_amrkest_mapping::centresStay_data()
{
    QTest::addColumn<int>("tag");
    QTest::addColumn<int>("factor");
    for (const int factor : {1, 3, 5, 7, 9}) {
        for (const int tag : {0, 1, 11}) {
            QTest::addRow("tag %d by %d", tag, factor) << tag << factor;
        }
    }
}

// Each segment of each tag: its middle is the middle of the segment that takes its place as a
// source; its first end is the first end of the one that takes its place for a slope source.
void tst_amrkest_mapping::centresStay()
{
    QFETCH(int, tag);
    QFETCH(int, factor);
    const Preprocessor checked(deckOf(structureCards()));
    const auto before = segmentsOf(checked.model(), tag);
    QVERIFY(before.size() >= 14);
    for (int segment = 1; segment <= before.size(); ++segment) {
        const Preprocessor source(
            deckWith(QStringLiteral("EX 0 %1 %2 0 1 0\nEX 5 %1 %2 0 1 0").arg(tag).arg(segment)));
        const Preprocessor refined = refinedBy(source, factor);
        const auto after = segmentsOf(refined.model(), tag);
        QCOMPARE(after.size(), before.size() * factor);
        const QVector<Card> sources = cardsOf(refined.model(), "EX");
        QCOMPARE(sources.size(), 3);
        const Point old = centre(before.at(segment - 1));
        QVERIFY(distance(centre(after.at(sources.at(1).integer(3) - 1)), old) < 1e-12);
        const Point end = after.at(sources.at(2).integer(3) - 1).first;
        QVERIFY(distance(end, before.at(segment - 1).first) < 1e-12);
    }
}

void tst_amrkest_mapping::spreadLoadsCoverTheSameLength_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("factor");
    for (const int factor : {3, 5, 7}) {
        QTest::addRow("one by %d", factor) << 4 << 4 << factor;
        QTest::addRow("some by %d", factor) << 2 << 6 << factor;
        QTest::addRow("over two wires by %d", factor) << 8 << 11 << factor;
        QTest::addRow("all by %d", factor) << 1 << 14 << factor;
    }
}

void tst_amrkest_mapping::spreadLoadsCoverTheSameLength()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, factor);
    const auto lengthOf = [](const suite::Model& model) {
        const Card load = cardsOf(model, "LD").constFirst();
        const auto segments = segmentsOf(model, load.integer(2));
        double length = 0;
        for (int i = load.integer(3); i <= load.integer(4); ++i) {
            length += distance(segments.at(i - 1).first, segments.at(i - 1).second);
        }
        return length;
    };
    const Preprocessor checked(deckWith(QStringLiteral("LD 5 1 %1 %2 5.8e7").arg(first).arg(last)));
    const Preprocessor refined = refinedBy(checked, factor);
    QVERIFY(lengthOf(checked.model()) > 0);
    QVERIFY(qAbs(lengthOf(refined.model()) - lengthOf(checked.model())) < 1e-12);
}

// 50 ohm in each of 14 segments stay 14 times 50 ohm, in the middles of the old segments.
void tst_amrkest_mapping::lumpedLoadsKeepTheirSum()
{
    const Preprocessor checked(deckWith(QStringLiteral("LD 4 1 0 0 50 0")));
    const Preprocessor refined = refinedBy(checked, 3);
    const QVector<Card> loads = cardsOf(refined.model(), "LD");
    const auto before = segmentsOf(checked.model(), 1);
    const auto after = segmentsOf(refined.model(), 1);
    QCOMPARE(loads.size(), before.size());
    for (int i = 0; i < loads.size(); ++i) {
        QCOMPARE(loads.at(i).integer(3), loads.at(i).integer(4));
        QVERIFY(distance(centre(after.at(loads.at(i).integer(3) - 1)), centre(before.at(i))) <
                1e-12);
    }
}

void tst_amrkest_mapping::commentsAreKept()
{
    QStringList cards = structureCards();
    cards[0] = QStringLiteral("CM F\u00fcr -*-error-*- #!'  two  blanks");
    const Preprocessor checked(deckOf(cards));
    const QByteArray deck = SegmentRefinement(checked.model()).deck(3);
    QVERIFY(deck.startsWith(cards.at(0).toUtf8() + "\nCM of several wires\nCE\nGW"));
}

void tst_amrkest_mapping::oneFrequencyTakesThePlaceOfTheRange()
{
    const Preprocessor checked(deckOf(structureCards()));
    const QByteArray deck = SegmentRefinement(checked.model()).deck(3, 297.123456789);
    QVERIFY(deck.contains("\nFR 0 1 0 0 297.123456789 0\n"));
    QCOMPARE(deck.count("FR "), 1);
}

void tst_amrkest_mapping::refusedCards_data()
{
    QTest::addColumn<QString>("cards");
    QTest::addColumn<QString>("mnemonic");
    QTest::addColumn<int>("line");
    const auto add = [](const char* cards, const char* mnemonic, int line) {
        QTest::newRow(cards) << QString::fromLatin1(cards) << QString::fromLatin1(mnemonic) << line;
    };
    add("GW 7 5 5 0 0 5 1 0 0\nGC 0 0 1.1 0.001 0.002", "GC", 9);
    add("SP 0 0 1 1 1 0 0 0.1", "SP", 8);
    add("SP 0 2 1 1 1 1 2 1\nSC 0 0 1 1.5 1.5", "SC", 9);
    add("SM 2 2 0 0 2 1 0 2\nSC 0 0 1 1 2", "SM", 8);
}

void tst_amrkest_mapping::refusedCards()
{
    QFETCH(QString, cards);
    QFETCH(QString, mnemonic);
    QFETCH(int, line);
    QStringList all = structureCards();
    all.insert(7, cards);
    const Preprocessor checked(deckOf(all));
    QVERIFY(!checked.findings().hasErrors());
    const auto problems = SegmentRefinement(checked.model()).problems().sorted();
    QVERIFY(std::any_of(problems.begin(), problems.end(), [&](const suite::Finding& finding) {
        return finding.line == line && finding.number() == 2821 &&
               finding.reason.startsWith(
                   QStringLiteral("card %1 cannot be refined, ").arg(mnemonic));
    }));
}

void tst_amrkest_mapping::missingSourceIsRefused()
{
    const Preprocessor good(deckOf(structureCards()));
    QVERIFY(!SegmentRefinement(good.model()).problems().hasErrors());
    QStringList cards = structureCards();
    cards[9] = QStringLiteral("EX 1 1 1 0 0 0 0 0 0 0");
    const Preprocessor checked(deckOf(cards));
    const auto problems = SegmentRefinement(checked.model()).problems().sorted();
    QCOMPARE(problems.size(), 1);
    QCOMPARE(problems.first().number(), 2822);
}

void tst_amrkest_mapping::limits_data()
{
    QTest::addColumn<QString>("wire");
    QTest::addColumn<int>("factor");
    QTest::addColumn<QString>("obstacle");
    const auto add = [](const char* wire, int factor, const char* obstacle) {
        QTest::addRow("%s by %d", wire, factor)
            << QString::fromLatin1(wire) << factor << QString::fromLatin1(obstacle);
    };
    add("GW 1 1000 0 0 0 0 0 100 0.0001", 5, "");
    add("GW 1 1001 0 0 0 0 0 100 0.0001", 5, "the next one would have 5005 segments");
    add("GW 1 4000 0 0 0 0 0 100 0.0001", 2147483, "the next one would have 8589932000 segments");
    add("GW 1 10 0 0 0 0 0 2.4 0.01", 3, "");
    add("GW 7 10 0 0 0 0 0 2.39 0.01", 3, "the segments of the wire with tag 7 would be shorter");
}

void tst_amrkest_mapping::limits()
{
    QFETCH(QString, wire);
    QFETCH(int, factor);
    QFETCH(QString, obstacle);
    const Preprocessor checked(
        deckOf({wire, QStringLiteral("GE"), QStringLiteral("FR 0 1 0 0 3"),
                QStringLiteral("EX 0 0 5"), QStringLiteral("XQ"), QStringLiteral("EN")}));
    QVERIFY(!checked.findings().hasErrors());
    const auto found = SegmentRefinement(checked.model()).obstacle(factor).sorted();
    QCOMPARE(found.isEmpty(), obstacle.isEmpty());
    if (!found.isEmpty()) {
        QVERIFY2(found.first().reason.contains(obstacle), qPrintable(found.first().reason));
        const bool isWire = obstacle.contains(QStringLiteral("wire"));
        QCOMPARE(found.first().place(), (suite::Place{QString(), isWire ? 1 : 0, isWire ? 7 : 0}));
    }
}

QTEST_GUILESS_MAIN(tst_amrkest_mapping)
#include "tst_amrkest_mapping.moc"
