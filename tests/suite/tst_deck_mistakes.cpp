// SPDX-License-Identifier: MIT
#include "ChangedDeck.h"
#include "SuiteRun.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

// Bad decks are reported with number, line and reason.
class tst_deck_mistakes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mistakeIsReported_data();
    void mistakeIsReported();

private:
    static void addCardRows();
    static void addOrderRows();
    static void addGeometryRows();
    static void addControlRows();
};

void tst_deck_mistakes::mistakeIsReported_data()
{
    DeckMistake::addColumns();
    addCardRows();
    addOrderRows();
    addGeometryRows();
    addControlRows();
}

void tst_deck_mistakes::addCardRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"unknown card",             7, "ZZ 1",                                     2101, "'ZZ'"},
        {"card of one letter",       7, "X",                                        2101, "'X'"},
        {"unknown geometry card",    3, "GQ 1 2",                                   2101, "'GQ'"},
        {"wire without radius",      3, "GW 1 21 0 0 -0.25 0 0 0.25",               2102, "at least 9 fields and has 8"},
        {"wire without fields",      3, "GW",                                       2102, "has 0"},
        {"frequency without value",  5, "FR 0 3",                                   2102, "FR needs at least 5"},
        {"load without value",       7, "LD 5 1 1 21\nXQ",                          2102, "LD needs at least 5"},
        {"coupling with nothing",    7, "CP 1 11\nXQ",                              2102, "CP needs at least 4"},
        {"source without segment",   6, "EX 0 1",                                   2102, "EX needs at least 3"},
        {"wire with a tenth field",  3, "GW 1 21 0 0 -0.25 0 0 0.25 0.001 7",       2103, "at most 9 fields and has 10"},
        {"eleven fields",            6, "EX 0 1 11 0 1 0 0 0 0 0 0",                2103, "at most 10 fields and has 11"},
        {"word for a number",        3, "GW 1 21 0 0 -0.25 0 zero 0.25 0.001",      2104, "field 7 of card GW is not a number but 'zero'"},
        {"Fortran exponent",         3, "GW 1 21 0 0 -0.25 0 0 0.25 1.0D-3",        2104, "'1.0D-3'"},
        {"infinite coordinate",      3, "GW 1 21 0 0 -inf 0 0 0.25 0.001",          2104, "'-inf'"},
        {"not a number",             3, "GW 1 21 0 0 nan 0 0 0.25 0.001",           2104, "'nan'"},
        {"hexadecimal number",       3, "GW 1 21 0 0 0x1 0 0 0.25 0.001",           2104, "'0x1'"},
        {"word for an integer",      3, "GW one 21 0 0 -0.25 0 0 0.25 0.001",       2104, "field 1"},
        {"fraction of segments",     3, "GW 1 21.5 0 0 -0.25 0 0 0.25 0.001",       2105, "field 2 of card GW must be a whole number and is '21.5'"},
        {"integer with point",       4, "GE 0.0",                                   2105, "'0.0'"},
        {"integer with exponent",    3, "GW 1 2e1 0 0 -0.25 0 0 0.25 0.001",        2105, "'2e1'"},
        {"number too large",         3, "GW 1 21 0 0 -0.25 0 0 1e400 0.001",        2106, "'1e400'"},
        {"coordinate out of reason", 3, "GW 1 21 0 0 -0.25 0 0 1e30 0.001",         2106, "'1e30'"},
        {"integer too large",        3, "GW 1 99999999999 0 0 -0.25 0 0 0.25 0.001", 2106, "'99999999999'"},
        {"other script's digit",     3, "GW 1 21 0 0 -0.25 0 0 0.25 \u0661",        2108, "not ASCII"},
        {"card begins with a blank", 7, " XQ",                                      2109, "begins with a blank"},
        {"card begins with a tab",   3, "\tGW 1 21 0 0 -0.25 0 0 0.25 0.001",       2109, "begins with a blank"},
        {"Green's function",         3, "GF\nGW 1 21 0 0 -0.25 0 0 0.25 0.001",     2110, "GF"},
        {"second structure",         8, "NX\nEN",                                   2110, "NX"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(changed(row.line, utf8(row.text)));
    }
    const QString blanks(130, QLatin1Char(' '));
    DeckMistake::add("card too long",
                     changed(3, utf8("GW 1 21 0 0 -0.25 0 0 0.25") + blanks + utf8("0.001")), 2107,
                     3, "at most 132");
    DeckMistake::add("comment too long", changed(1, utf8("CM ") + QString(131, QLatin1Char('x'))),
                     2107, 1, "134 bytes");
    DeckMistake::add("byte order mark", QByteArray("\xef\xbb\xbf") + deckOf(dipoleCards().mid(2)),
                     2017, 1, "byte order mark");
}

void tst_deck_mistakes::addOrderRows()
{
    DeckMistake::add("comments not ended", changed(2, QString()), 2201, 2, "CE");
    DeckMistake::add("comment among geometry", changed(4, utf8("CM late\nGE 0")), 2202, 4, "CM");
    DeckMistake::add("second comments' end", changed(2, utf8("CE\nCE")), 2202, 3, "CE");
    DeckMistake::add("control before GE", changed(4, utf8("GN 1\nGE 0")), 2203, 4, "GN");
    DeckMistake::add("wire after GE",
                     changed(5, utf8("GW 2 5 1 0 0 1 0 1 0.001\nFR 0 1 0 0 300 0")), 2204, 5, "GW");
    DeckMistake::add("second GE", changed(4, utf8("GE 0\nGE 0")), 2204, 5, "GE");
    DeckMistake::add("no GE", changed(4, QString()), 2205, 7, "GE");
    DeckMistake::add("no wire", changed(3, QString()), 2206, 7, "no wire");
    DeckMistake::add("no FR", changed(5, QString()), 2207, 7, "FR");
    DeckMistake::add("two FR", changed(5, utf8("FR 0 1 0 0 300 0\nFR 0 1 0 0 310 0")), 2208, 6,
                     "line 5");
    DeckMistake::add("no EX", changed(6, QString()), 2209, 7, "EX");
    DeckMistake::add("no XQ", changed(7, QString()), 2210, 7, "nothing would be computed");
    DeckMistake::add("XQ before EX", changed(6, utf8("XQ\nEX 0 1 11 0 1 0")), 2211, 6, "first EX");
    DeckMistake::add("RP before FR", changed(5, utf8("EX 0 1 11\nRP 0 1 1 1000\nFR 0 1 0 0 300 0")),
                     2211, 6, "first FR");
    DeckMistake::add("no EN", changed(8, QString()), 2212, 7, "EN");
    DeckMistake::add("only comments", QByteArray("CM nothing\nCE\n"), 2206, 2, "no wire");
    DeckMistake::add("taper of nothing", changed(4, utf8("GC 0 0 1 0.001 0.001\nGE 0")), 2213, 4,
                     "GC");
    DeckMistake::add("patch not continued", changed(4, utf8("SP 0 1 1 1 1 0 0 0.1\nGE 0")), 2214, 4,
                     "SC");
    DeckMistake::add("patch of nothing", changed(4, utf8("SC 0 1 1 1 1\nGE 0")), 2214, 4,
                     "SP or SM");
}

void tst_deck_mistakes::addGeometryRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"no segments",        3, "GW 1 0 0 0 -0.25 0 0 0.25 0.001",   2301, "at least 1 and is 0"},
        {"negative segments",  3, "GW 1 -3 0 0 -0.25 0 0 0.25 0.001",  2301, "is -3"},
        {"too many segments",  3, "GW 1 5001 0 0 -0.25 0 0 0.25 1e-9", 2302, "more than 5000"},
        {"no length",          3, "GW 1 21 0 0 0.25 0 0 0.25 0.001",   2303, "no length"},
        {"radius 0",           3, "GW 1 21 0 0 -0.25 0 0 0.25 0",      2304, "is 0"},
        {"negative radius",    3, "GW 1 21 0 0 -0.25 0 0 0.25 -1",     2304, "is -1"},
        {"negative tag",       3, "GW -1 21 0 0 -0.25 0 0 0.25 0.001", 2305, "is -1"},
        {"arc of 400 degrees", 3, "GA 1 21 0.2 0 400 0.001",           2306, "360"},
        {"arc of no radius",   3, "GA 1 21 0 0 90 0.001",              2306, "radius"},
        {"helix of no length", 3, "GH 1 21 0.1 0 0.2 0.2 0.2 0.2 0.001",   2307, "helix"},
        {"helix of no turns",  3, "GH 1 21 0 0.5 0.2 0.2 0.2 0.2 0.001",   2307, "helix"},
    };
    static const DeckMistake afterWire[] = {
        {"scale 0",            4, "GS 0 0 0",                2308, "scale"},
        {"turned 0 times",     4, "GR 1 0",                  2308, "once"},
        {"negative copies",    4, "GM 1 -1 0 0 0 1 0 0",     2308, "negative"},
        {"moved from no tag",  4, "GM 1 1 0 0 0 1 0 0 7",    2308, "no wire has the tag"},
        {"mirrored in a 2",    4, "GX 1 200",                2308, "digits"},
        {"copied too often",   4, "GM 1 2000000000 0 0 0 1 0 0", 2302, "5000"},
        {"turned too often",   4, "GR 1 2000000000",         2302, "5000"},
        {"tags grow too fast", 4, "GM 2000000000 5 0 0 0 1 0 0", 2308, "increment"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(changed(3, utf8(row.text)));
    }
    for (const DeckMistake& row : afterWire) {
        row.add(changed(4, utf8(row.text) + utf8("\nGE 0")));
    }
    DeckMistake::add("taper of radius 0",
                     changed(4, utf8("GW 2 5 1 0 0 1 0 1 0\nGC 0 0 1 0 0.1\nGE 0")), 2304, 5,
                     "is 0");
    DeckMistake::add("wire below ground", changed(4, utf8("GE 1")), 2309, 3, "goes below");
    DeckMistake::add("wire in the ground plane",
                     changed(3, utf8("GW 1 21 0 0 0 0 0.5 0 0.001\nGE 1")).replace("GE 0\n", ""),
                     2309, 3, "lies in");
}

void tst_deck_mistakes::addControlRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"frequency 0",            5, "FR 0 1 0 0 0 0",         2401, "is 0"},
        {"negative frequency",     5, "FR 0 1 0 0 -300 0",      2401, "is -300"},
        {"no frequency step",      5, "FR 0 3 0 0 300 0",       2402, "3 different"},
        {"steps below 0",          5, "FR 0 9 0 0 300 -50",     2402, "-50"},
        {"multiplied by 1",        5, "FR 1 3 0 0 300 1",       2402, "step 1"},
        {"multiplied beyond all",  5, "FR 1 9999 0 0 300 9999", 2402, "9999"},
        {"frequency type 2",       5, "FR 2 3 0 0 300 5",       2403, "is 2"},
        {"a million frequencies",  5, "FR 0 1000000 0 0 300 1", 2404, "is 1000000"},
        {"negative frequencies",   5, "FR 0 -1 0 0 300 1",      2404, "is -1"},
        {"source of type 9",       6, "EX 9 1 11 0 1 0",        2405, "unknown type 9"},
        {"load of type 6",         7, "LD 6 1 1 21 1\nXQ",      2405, "unknown type 6"},
        {"ground of type 3",       7, "GN 3 0 0 0 13 0.005\nXQ", 2405, "unknown type 3"},
        {"pattern of type 7",      7, "RP 7 1 1 1000",          2405, "unknown type 7"},
        {"source on no tag",       6, "EX 0 2 11 0 1 0",        2406, "tag 2"},
        {"load on no tag",         7, "LD 5 9 0 0 5.8e7\nXQ",   2406, "tag 9"},
        {"network from no tag",    7, "NT 7 1 1 21 0 0 1e-3\nXQ", 2406, "tag 7"},
        {"source on segment 22",   6, "EX 0 1 22 0 1 0",        2407, "segment 22 of tag 1, which has 21"},
        {"source on segment 0",    6, "EX 0 1 0 0 1 0",         2407, "segment 0"},
        {"source on absolute 22",  6, "EX 0 0 22 0 1 0",        2407, "segment 22 of tag 0"},
        {"load to segment 22",     7, "LD 4 1 1 22 50 0\nXQ",   2407, "segment 22"},
        {"network to segment 22",  7, "NT 1 1 1 22 0 0 1e-3\nXQ", 2407, "segment 22"},
        {"line to segment 22",     7, "TL 1 1 1 22 50 0.3\nXQ", 2407, "segment 22"},
        {"coupling to segment 22", 7, "CP 1 11 1 22\nXQ",       2407, "segment 22"},
        {"load range backwards",   7, "LD 4 1 20 10 50 0\nXQ",  2408, "segment 10 comes before its first, 20"},
        {"wire that insulates",    7, "LD 5 1 1 21 0\nXQ",      2409, "conductivity"},
        {"line of no impedance",   7, "TL 1 1 1 21 0 0.3\nXQ",  2410, "impedance"},
        {"ground of no permittivity", 7, "GN 0 0 0 0 0 0.005\nXQ", 2411, "permittivity"},
        {"too many angles",        7, "RP 0 100000 100000 1000", 2412, "10000000000 points"},
        {"too many field points",  7, "NE 0 1000 1000 1000 0 0 0 1 1 1", 2412, "1000000"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(changed(row.line, utf8(row.text)));
    }
}

void tst_deck_mistakes::mistakeIsReported()
{
    const ReportedDeck expected = ReportedDeck::ofRow();
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), utf8("bad.nec"), expected.deck).isEmpty());

    const SuiteResult result = runSuite(prekestProgram(), {utf8("bad.nec")}, folder.path());

    QCOMPARE(result.exitCode, 1);
    QVERIFY(!result.isCrash);
    const QStringList errors = result.bodies(utf8("error"));
    const QStringList matching = errors.filter(QRegularExpression(
        QStringLiteral("^ERROR %1: .*\\(bad\\.nec, line %2[,)]")
            .arg(QString::number(expected.number), QString::number(expected.line))));
    QVERIFY2(matching.size() == 1, qPrintable(errors.join(QLatin1Char('\n'))));
    QVERIFY2(matching.first().contains(expected.reason), qPrintable(matching.first()));
    QVERIFY(result.bodies(utf8("total-percentage")).isEmpty());
}

QTEST_GUILESS_MAIN(tst_deck_mistakes)
#include "tst_deck_mistakes.moc"
