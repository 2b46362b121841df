// SPDX-License-Identifier: MIT
#include "ChangedDeck.h"
#include "SuiteRun.h"

#include "Preprocessor.h"

#include <ReadingTime.h>

#include <QTemporaryDir>
#include <QtTest>

// Good decks pass, and the engine agrees; warnings name their wires.
class tst_deck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodDeckPasses_data();
    void goodDeckPasses();
    void oneMistakeDoesNotHideTheNext();
    void garbageIsCutOff();
    void warnings_data();
    void warnings();
    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }
    void timeGrowsWithTheSize();
    void warningsNameTheWireByItsTag();
};

void tst_deck::goodDeckPasses_data()
{
    QTest::addColumn<QByteArray>("deck");
    const auto add = [](const char* name, int line, const QString& card) {
        QTest::newRow(name) << changed(line, card);
    };
    const QByteArray dipole = deckOf(dipoleCards());
    QTest::newRow("plain") << dipole;
    QTest::newRow("lower case") << dipole.toLower();
    QTest::newRow("CRLF") << QByteArray(dipole).replace("\n", "\r\n");
    QTest::newRow("no last line end") << dipole.chopped(1);
    QTest::newRow("no comments") << deckOf(dipoleCards().mid(2));
    QTest::newRow("text behind EN") << dipole + "garbage\n";
    QTest::newRow("blank lines") << QByteArray(dipole).replace("GE", "\n   \nGE");
    QTest::newRow("remark lines") << "# " + QByteArray(200, 'x') + "\n" + dipole;
    // clang-format off
    add("commas",             3, utf8("GW 1,21, 0,0,-0.25, 0,0,0.25, 0.001"));
    add("tabs",               3, utf8("GW\t1\t21\t0\t0\t-0.25\t0\t0\t0.25\t0.001"));
    add("field at the name",  3, utf8("GW1 21 0 0 -0.25 0 0 0.25 0.001"));
    add("comma at the name",  3, utf8("GW,1,21,0,0,-.25,0,0,+.25,1.E-03"));
    add("remark in a card",   3, utf8("GW 1 21 0 0 -0.25 0 0 0.25 0.001 ! radius"));
    add("UTF-8 comment",      1, utf8("CM Antenne f\u00fcr 300 MHz"));
    add("longest comment",    1, utf8("CM ") + QString(129, QLatin1Char('x')));
    add("GE without field",   4, utf8("GE"));
    add("wire without tag",   3, utf8("GW 0 5 1 0 0 1 0 1 0.001\nGW 1 21 0 0 -0.25 0 0 0.25 0.001"));
    add("tapered wire",       4, utf8("GW 2 9 1 0 0 1 0 1 0\nGC 0 0 1.1 0.001 0.002\nGE 0"));
    add("arc",                4, utf8("GA 2 8 0.3 0 180 0.001\nGE 0"));
    add("helix",              4, utf8("GH 2 20 0.1 0.4 0.2 0.2 0.2 0.2 0.001\nGE 0"));
    add("copies",             4, utf8("GM 1 2 0 0 0 0.3 0 0 1\nGE 0"));
    add("turned copies",      4, utf8("GM 0 0 0 0 0 1 0 0\nGR 1 4\nGE 0"));
    add("mirrored",           4, utf8("GM 0 0 0 0 0 1 1 0\nGX 1 110\nGE 0"));
    add("scaled",             4, utf8("GS 0 0 0.9\nGE 0"));
    add("patch",              4, utf8("SP 0 0 1 1 1 0 0 0.1\nGE 0"));
    add("patch of 3 corners", 4, utf8("SP 0 2 1 1 1 1 2 1\nSC 0 0 1 1.5 1.5\nGE 0"));
    add("surface",            4, utf8("SM 2 2 0 0 2 1 0 2\nSC 0 0 1 1 2\nGE 0"));
    add("one frequency",      5, utf8("FR 0 0 0 0 300"));
    add("downwards",          5, utf8("FR 0 3 0 0 300 -5"));
    add("multiplied",         5, utf8("FR 1 3 0 0 290 1.01"));
    add("current slope",      6, utf8("EX 5 1 11 0 1 0"));
    add("plane wave",         6, utf8("EX 1 1 1 0 0 0 0 0 0 0"));
    add("absolute segment",   6, utf8("EX 0 0 11 0 1 0"));
    add("voltage left out",   6, utf8("EX 0 1 11"));
    add("two sources",        6, utf8("EX 0 1 5 0 1 0\nEX 0 1 15 0 1 0"));
    add("wire loss",          7, utf8("LD 5 1 0 0 5.8e7\nXQ"));
    add("one loaded segment", 7, utf8("LD 4 1 11 0 50 0\nXQ"));
    add("loads taken away",   7, utf8("LD -1\nXQ"));
    add("network",            7, utf8("NT 1 1 1 21 0 0 1e-3 0 0 0\nXQ"));
    add("transmission line",  7, utf8("TL 1 1 1 21 50 0.3\nXQ"));
    add("perfect ground",     7, utf8("GN 1\nXQ"));
    add("free space",         7, utf8("GN -1\nXQ"));
    add("real ground",        7, utf8("GN 0 0 0 0 13 0.005\nXQ"));
    add("pattern",            7, utf8("RP 0 10 2 1000 0 0 10 90"));
    add("near field",         7, utf8("NE 0 2 2 2 1 1 1 0.1 0.1 0.1"));
    add("kernel and ranges",  7, utf8("EK\nKH 0 0 0 0 1\nPT -1\nPQ 0\nXQ"));
    add("coupling",           7, utf8("CP 1 11 1 15\nXQ"));
    // clang-format on
}

void tst_deck::goodDeckPasses()
{
    QFETCH(QByteArray, deck);
    const suite::Preprocessor checked(deck);
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        const bool isMistake = finding.severity() == suite::Severity::Fatal ||
                               finding.severity() == suite::Severity::Error;
        QVERIFY2(!isMistake, qPrintable(finding.reason));
    }

    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), utf8("good.nec"), deck).isEmpty());
    const SuiteResult result = runSuite(
        utf8("nec2c"), {utf8("-i"), utf8("good.nec"), utf8("-o"), utf8("good.out")}, folder.path());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!result.isCrash);
}

void tst_deck::oneMistakeDoesNotHideTheNext()
{
    const suite::Preprocessor checked(readFile(suiteHome() + utf8("/models/mistakes.nec")));
    QVector<int> lines;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        if (finding.severity() == suite::Severity::Error) {
            lines.append(finding.line);
        }
    }
    QCOMPARE(lines, QVector<int>({4, 6, 8, 10, 12, 17, 20, 22}));
}

void tst_deck::garbageIsCutOff()
{
    const suite::Preprocessor checked(QByteArray("no card at all\n").repeated(100000));
    QVERIFY(checked.findings().contains(suite::FindingKind::TooManyErrors));
    QCOMPARE(checked.findings().sorted().size(), 201);
}

void tst_deck::warnings_data()
{
    QTest::addColumn<QByteArray>("deck");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("line");
    QTest::newRow("long segments")
        << changed(3, utf8("GW 1 3 0 0 -0.25 0 0 0.25 0.001")).replace("1 11", "1 2") << 3201 << 3;
    QTest::newRow("long at the highest frequency only")
        << changed(5, utf8("FR 0 2 0 0 300 1000")) << 3201 << 3;
    QTest::newRow("thick wire") << changed(3, utf8("GW 1 21 0 0 -0.25 0 0 0.25 0.01")) << 3202 << 3;
    QTest::newRow("second wire thick")
        << changed(4, utf8("GM 0 0 0 0 0 0 0 0\nGW 2 21 1 0 0 1 0 1 0.02\nGE 0")) << 3202 << 5;
    QTest::newRow("shared tag") << changed(4, utf8("GW 1 21 1 0 0 1 0 1 0.001\nGE 0")) << 3203 << 4;
    QTest::newRow("text behind EN") << changed(8, utf8("EN\nXQ")) << 3204 << 9;
    QTest::newRow("plot file") << changed(7, utf8("PL 1\nXQ")) << 3205 << 7;
    QTest::newRow("none") << deckOf(dipoleCards()) << 0 << 0;
}

void tst_deck::warnings()
{
    QFETCH(QByteArray, deck);
    QFETCH(int, number);
    QFETCH(int, line);
    const suite::Preprocessor checked(deck);
    QVERIFY(!checked.findings().hasErrors());
    QVector<QPair<int, int>> found;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        if (finding.severity() == suite::Severity::Warning) {
            found.append({finding.number(), finding.line});
        }
    }
    QCOMPARE(found.isEmpty(), number == 0);
    if (number != 0) {
        QCOMPARE(found.first(), qMakePair(number, line));
        QCOMPARE(found.size(), 1);
    }
}

// Behind a good model, too, of which there are cards in the pieces.
void tst_deck::timeGrowsWithTheSize()
{
    QFETCH(QByteArray, piece);
    const QByteArray good = deckOf(dipoleCards().mid(0, 4)) + '\n';
    const auto read = [&good](const QByteArray& bytes) {
        const suite::Preprocessor bare(bytes);
        const suite::Preprocessor behindCards(good + bytes);
        Q_UNUSED(bare.findings().sorted())
        Q_UNUSED(behindCards.findings().sorted())
    };
    constexpr int size = 1 << 17; // larger than any deck that is meant
    QCOMPARE(ReadingTime::problem(read, piece, size), QString());
}

// The number in its card: other wires may have none of their own in front of it.
void tst_deck::warningsNameTheWireByItsTag()
{
    const QByteArray deck =
        changed(3, utf8("GW 1 21 0 0 -0.25 0 0 0.25 0.001\nGW 6 3 1 0 -0.25 1 0 0.25 0.07"));
    QStringList reasons;
    const auto findings = suite::Preprocessor(deck).findings().sorted();
    for (const suite::Finding& finding : findings) {
        if (finding.severity() == suite::Severity::Warning) {
            QVERIFY(finding.place() == (suite::Place{QString(), 4, 6}));
            reasons.append(finding.reason.section(QStringLiteral(" ("), 0, 0));
        }
    }
    QCOMPARE(reasons, QStringList({utf8("the segments of the wire with tag 6"),
                                   utf8("the segments of the wire with tag 6")}));
}

QTEST_GUILESS_MAIN(tst_deck)
#include "tst_deck.moc"
