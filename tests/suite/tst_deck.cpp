#include "SuiteRun.h"

#include "Preprocessor.h"

#include <ReadingTime.h>

#include <QTemporaryDir>
#include <QtTest>

// Bad decks are reported with number, line and reason; good ones pass, and the engine agrees.
class tst_deck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mistakeIsReported_data();
    void mistakeIsReported();
    void goodDeckPasses_data();
    void goodDeckPasses();
    void oneMistakeDoesNotHideTheNext();
    void garbageIsCutOff();
    void warnings_data();
    void warnings();
    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }
    void timeGrowsWithTheSize();
    void warningsNameTheWireByItsTag();

private:
    static QByteArray changed(int line, const QString& card);
    static void addCardRows();
    static void addOrderRows();
    static void addGeometryRows();
    static void addControlRows();
};

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

void addRow(const char* name, const QByteArray& deck, int number, int line, const char* reason)
{
    QTest::newRow(name) << deck << number << line << QString::fromLatin1(reason);
}

} // namespace

// The good dipole with one line replaced. Several cards may stand in for one, and none.
QByteArray tst_deck::changed(int line, const QString& card)
{
    QStringList cards = dipoleCards();
    if (card.isNull()) {
        cards.removeAt(line - 1);
    } else {
        cards[line - 1] = card;
    }
    return deckOf(cards);
}

void tst_deck::mistakeIsReported_data()
{
    QTest::addColumn<QByteArray>("deck");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    addCardRows();
    addOrderRows();
    addGeometryRows();
    addControlRows();
}

void tst_deck::addCardRows()
{
    struct Row
    {
        const char* name;
        int line;
        const char* card;
        int number;
        const char* reason;
    };
    // clang-format off
    static const Row table[] = {
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
    for (const Row& row : table) {
        addRow(row.name, changed(row.line, utf8(row.card)), row.number, row.line, row.reason);
    }
    const QString blanks(130, QLatin1Char(' '));
    addRow("card too long", changed(3, utf8("GW 1 21 0 0 -0.25 0 0 0.25") + blanks + utf8("0.001")),
           2107, 3, "at most 132");
    addRow("comment too long", changed(1, utf8("CM ") + QString(131, QLatin1Char('x'))), 2107, 1,
           "134 bytes");
    addRow("byte order mark", QByteArray("\xef\xbb\xbf") + deckOf(dipoleCards().mid(2)), 2017, 1,
           "byte order mark");
}

void tst_deck::addOrderRows()
{
    addRow("comments not ended", changed(2, QString()), 2201, 2, "CE");
    addRow("comment among geometry", changed(4, utf8("CM late\nGE 0")), 2202, 4, "CM");
    addRow("second comments' end", changed(2, utf8("CE\nCE")), 2202, 3, "CE");
    addRow("control before GE", changed(4, utf8("GN 1\nGE 0")), 2203, 4, "GN");
    addRow("wire after GE", changed(5, utf8("GW 2 5 1 0 0 1 0 1 0.001\nFR 0 1 0 0 300 0")), 2204, 5,
           "GW");
    addRow("second GE", changed(4, utf8("GE 0\nGE 0")), 2204, 5, "GE");
    addRow("no GE", changed(4, QString()), 2205, 7, "GE");
    addRow("no wire", changed(3, QString()), 2206, 7, "no wire");
    addRow("no FR", changed(5, QString()), 2207, 7, "FR");
    addRow("two FR", changed(5, utf8("FR 0 1 0 0 300 0\nFR 0 1 0 0 310 0")), 2208, 6, "line 5");
    addRow("no EX", changed(6, QString()), 2209, 7, "EX");
    addRow("no XQ", changed(7, QString()), 2210, 7, "nothing would be computed");
    addRow("XQ before EX", changed(6, utf8("XQ\nEX 0 1 11 0 1 0")), 2211, 6, "first EX");
    addRow("RP before FR", changed(5, utf8("EX 0 1 11\nRP 0 1 1 1000\nFR 0 1 0 0 300 0")), 2211, 6,
           "first FR");
    addRow("no EN", changed(8, QString()), 2212, 7, "EN");
    addRow("only comments", QByteArray("CM nothing\nCE\n"), 2206, 2, "no wire");
    addRow("taper of nothing", changed(4, utf8("GC 0 0 1 0.001 0.001\nGE 0")), 2213, 4, "GC");
    addRow("patch not continued", changed(4, utf8("SP 0 1 1 1 1 0 0 0.1\nGE 0")), 2214, 4, "SC");
    addRow("patch of nothing", changed(4, utf8("SC 0 1 1 1 1\nGE 0")), 2214, 4, "SP or SM");
}

void tst_deck::addGeometryRows()
{
    struct Row
    {
        const char* name;
        const char* card;
        int number;
        const char* reason;
    };
    // clang-format off
    static const Row table[] = {
        {"no segments",        "GW 1 0 0 0 -0.25 0 0 0.25 0.001",   2301, "at least 1 and is 0"},
        {"negative segments",  "GW 1 -3 0 0 -0.25 0 0 0.25 0.001",  2301, "is -3"},
        {"too many segments",  "GW 1 5001 0 0 -0.25 0 0 0.25 1e-9", 2302, "more than 5000"},
        {"no length",          "GW 1 21 0 0 0.25 0 0 0.25 0.001",   2303, "no length"},
        {"radius 0",           "GW 1 21 0 0 -0.25 0 0 0.25 0",      2304, "is 0"},
        {"negative radius",    "GW 1 21 0 0 -0.25 0 0 0.25 -1",     2304, "is -1"},
        {"negative tag",       "GW -1 21 0 0 -0.25 0 0 0.25 0.001", 2305, "is -1"},
        {"arc of 400 degrees", "GA 1 21 0.2 0 400 0.001",           2306, "360"},
        {"arc of no radius",   "GA 1 21 0 0 90 0.001",              2306, "radius"},
        {"helix of no length", "GH 1 21 0.1 0 0.2 0.2 0.2 0.2 0.001",   2307, "helix"},
        {"helix of no turns",  "GH 1 21 0 0.5 0.2 0.2 0.2 0.2 0.001",   2307, "helix"},
    };
    static const Row afterWire[] = {
        {"scale 0",            "GS 0 0 0",                2308, "scale"},
        {"turned 0 times",     "GR 1 0",                  2308, "once"},
        {"negative copies",    "GM 1 -1 0 0 0 1 0 0",     2308, "negative"},
        {"moved from no tag",  "GM 1 1 0 0 0 1 0 0 7",    2308, "no wire has the tag"},
        {"mirrored in a 2",    "GX 1 200",                2308, "digits"},
        {"copied too often",   "GM 1 2000000000 0 0 0 1 0 0", 2302, "5000"},
        {"turned too often",   "GR 1 2000000000",         2302, "5000"},
        {"tags grow too fast", "GM 2000000000 5 0 0 0 1 0 0", 2308, "increment"},
    };
    // clang-format on
    for (const Row& row : table) {
        addRow(row.name, changed(3, utf8(row.card)), row.number, 3, row.reason);
    }
    for (const Row& row : afterWire) {
        addRow(row.name, changed(4, utf8(row.card) + utf8("\nGE 0")), row.number, 4, row.reason);
    }
    addRow("taper of radius 0", changed(4, utf8("GW 2 5 1 0 0 1 0 1 0\nGC 0 0 1 0 0.1\nGE 0")),
           2304, 5, "is 0");
    addRow("wire below ground", changed(4, utf8("GE 1")), 2309, 3, "goes below");
    addRow("wire in the ground plane",
           changed(3, utf8("GW 1 21 0 0 0 0 0.5 0 0.001\nGE 1")).replace("GE 0\n", ""), 2309, 3,
           "lies in");
}

void tst_deck::addControlRows()
{
    struct Row
    {
        const char* name;
        int line;
        const char* card;
        int number;
        const char* reason;
    };
    // clang-format off
    static const Row table[] = {
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
    for (const Row& row : table) {
        addRow(row.name, changed(row.line, utf8(row.card)), row.number, row.line, row.reason);
    }
}

void tst_deck::mistakeIsReported()
{
    QFETCH(QByteArray, deck);
    QFETCH(int, number);
    QFETCH(int, line);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), utf8("bad.nec"), deck).isEmpty());

    const SuiteResult result = runSuite(prekestProgram(), {utf8("bad.nec")}, folder.path());

    QCOMPARE(result.exitCode, 1);
    QVERIFY(!result.isCrash);
    const QString start = QStringLiteral("ERROR %1: bad.nec:%2: ").arg(number).arg(line);
    const QStringList errors = result.bodies(utf8("error"));
    const QStringList matching = errors.filter(start);
    QVERIFY2(matching.size() == 1, qPrintable(start + errors.join(QLatin1Char('\n'))));
    QVERIFY2(matching.first().startsWith(start) && matching.first().contains(reason),
             qPrintable(matching.first()));
    QVERIFY(result.bodies(utf8("total-percentage")).isEmpty());
}

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
            QCOMPARE(finding.line, 4);
            reasons.append(finding.reason.section(QStringLiteral(" ("), 0, 0));
        }
    }
    QCOMPARE(reasons, QStringList({utf8("the segments of the wire with tag 6"),
                                   utf8("the segments of the wire with tag 6")}));
}

QTEST_GUILESS_MAIN(tst_deck)
#include "tst_deck.moc"
