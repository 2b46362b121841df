#include "SuiteRun.h"

#include "Preprocessor.h"
#include "SweepDeck.h"

#include <TestRandom.h>

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using suite::Preprocessor;
using suite::Severity;
using suite::SweepDeck;

// Decks may give values names and compute with them; the engine gets plain numbers. Every mistake
// in it is reported where it stands, once.
class tst_named_values : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void engineGetsPlainNumbers_data();
    void engineGetsPlainNumbers();
    void cardsWithoutNamesStayAsTheyAre();
    void valuesKeepAllTheirDigits();
    void longCardsFitTheEngine();
    void mistakeIsReported_data();
    void mistakeIsReported();
    void oneMistakeIsToldOnce();
    void deckWithoutNamesKnowsNone();
    void optimisationIsRead_data();
    void optimisationIsRead();
    void otherCommentsAreComments();
    void variablesArePrinted();
    void installedModelIsSolved();
    void manyNamesTakeLittleTime();
    void randomDecksAreSurvived();

private:
    static void addDefinitionRows();
    static void addFieldRows();
    static void addOptimisationRows();
};

namespace {

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

// A dipole of half the length H on both sides; the second line is a comment, the third card an SY.
QByteArray deckWith(const char* definition, const char* wire,
                    const char* comment = "CM nothing to tell")
{
    return QByteArray("CM A dipole\n") + comment + "\nCE\n" + definition + '\n' + wire +
           "\nGE 0\nFR 0 3 0 0 290 5\nEX 0 1 11 0 1 0\nXQ\nEN\n";
}

constexpr const char* wireLine = "GW 1 21 0 0 -H 0 0 H 0.001";

QVector<QPair<int, int>> mistakes(const Preprocessor& checked)
{
    QVector<QPair<int, int>> result;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        if (finding.severity() == Severity::Fatal || finding.severity() == Severity::Error) {
            result.append({finding.number(), finding.line});
        }
    }
    return result;
}

QByteArray engineLine(const Preprocessor& checked, const char* mnemonic)
{
    const QList<QByteArray> lines = SweepDeck(checked.model()).deck(0).split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(mnemonic)) {
            return line;
        }
    }
    return {};
}

} // namespace

void tst_named_values::engineGetsPlainNumbers_data()
{
    QTest::addColumn<QByteArray>("definition");
    QTest::addColumn<QByteArray>("wire");
    QTest::addColumn<QByteArray>("expected");
    const auto add = [](const char* name, const char* definition, const char* wire,
                        const char* expected) {
        QTest::newRow(name) << QByteArray(definition) << QByteArray(wire) << QByteArray(expected);
    };
    const char* plain = "GW 1 21 0 0 -0.25 0 0 0.25 0.001";
    add("name and its negative", "SY H=0.25", wireLine, plain);
    add("other case", "sy h=0.25", wireLine, plain);
    add("blanks around the sign", "SY  H = 0.25 ", wireLine, plain);
    add("tab behind the letters", "SY\tH=0.25", wireLine, plain);
    add("no blank behind the letters", "SYH=0.25", wireLine, plain);
    add("several on a card", "SY A=0.2, B=0.05,H=A+B", wireLine, plain);
    add("several cards", "SY L=0.5\nSY H=L/2", wireLine, plain);
    add("remark behind", "SY H=0.25 ! metres, half=1", wireLine, plain);
    add("other remarks", "SY H=0.25 # metres\nSY R=1 ' one", wireLine, plain);
    add("remark at once", "SY H=0.25!metres", wireLine, plain);
    add("quotient", "SY L=0.5", "GW 1 21 0 0 -L/2 0 0 L/2 0.001", plain);
    add("number in front", "SY L=0.5", "GW 1 21 0 0 -0.5*L 0 0 0.5*L 0.001", plain);
    add("number behind", "SY L=0.5", "GW 1 21 0 0 -L*0.5 0 0 L*0.5 0.001", plain);
    add("sum and difference", "SY L=1", "GW 1 21 0 0 L-1.25 0 0 L+-0.75 0.001", plain);
    add("parentheses", "SY L=1", "GW 1 21 0 0 -(L-0.5)/2 0 0 (L-0.5)/2 0.001", plain);
    add("commas between fields", "SY H=0.25", "GW 1,21,0,0,-H,0,0,H,0.001", plain);
    add("arithmetic without names", "SY X=1", "GW 1 21 0 0 -1/4 0 0 1/4 0.001", plain);
    add("whole number", "SY H=0.25,N=21", "GW 1 N 0 0 -H 0 0 H 0.001", plain);
    add("whole expression", "SY H=0.25,N=7", "GW N-6 3*N 0 0 -H 0 0 H 0.001", plain);
    add("whole but for the last digit", "SY H=0.25,N=0.7", "GW 1 N*30 0 0 -H 0 0 H 0.001", plain);
    add("name with digits and underscore", "SY a_1=0.25", "GW 1 21 0 0 -A_1 0 0 a_1 0.001", plain);
    add("name of 32 letters", "SY ABCDEFGHIJKLMNOPQRSTUVWXYZabcdef=0.25",
        "GW 1 21 0 0 -0.25 0 0 ABCDEFGHIJKLMNOPQRSTUVWXYZabcdef 0.001", plain);
    add("definition between cards", "GW 2 3 1 0 0 1 0 0.1 0.001\nSY H=0.25", wireLine, plain);
}

void tst_named_values::engineGetsPlainNumbers()
{
    QFETCH(QByteArray, definition);
    QFETCH(QByteArray, wire);
    QFETCH(QByteArray, expected);
    const Preprocessor checked(deckWith(definition.constData(), wire.constData()));
    QCOMPARE(mistakes(checked), (QVector<QPair<int, int>>()));
    QCOMPARE(engineLine(checked, "GW 1"), expected);
    QCOMPARE(checked.model().structure.wires.last().longestSegment() * 21, 0.5);
    QVERIFY(!SweepDeck(checked.model()).deck(0).contains("SY"));
}

// As they did without any name in the deck.
void tst_named_values::cardsWithoutNamesStayAsTheyAre()
{
    const QByteArray cards = "GW 1 +21 0. 00 -2.50E-1 .0 0 25e-2 1.0E-03";
    const QByteArray without = deckWith("GM 0 0 0 0 0 0 0 0", cards.constData());
    const QByteArray with = deckWith("SY UNUSED=3\nGM 0 0 0 0 0 0 0 0", cards.constData());
    const Preprocessor plain(without);
    const Preprocessor named(with);
    QCOMPARE(mistakes(named), (QVector<QPair<int, int>>()));
    QCOMPARE(SweepDeck(named.model()).deck(1), SweepDeck(plain.model()).deck(1));
    QCOMPARE(engineLine(named, "GW"), cards);
}

void tst_named_values::valuesKeepAllTheirDigits()
{
    const Preprocessor checked(deckWith("SY L=1\nSY H=L/3", wireLine));
    const QByteArray field = engineLine(checked, "GW").split(' ').at(8);
    QVERIFY(field.toDouble() == 1.0 / 3);
}

// The engine takes what stands behind its longest line for another card.
void tst_named_values::longCardsFitTheEngine()
{
    const Preprocessor checked(
        deckWith("SY A=1/3,B=-1/7000", "GW 1 21 B -A/3 -A/7 A/11 A A/13 -B/5"));
    QCOMPARE(mistakes(checked), (QVector<QPair<int, int>>()));
    const QByteArray line = engineLine(checked, "GW");
    QVERIFY2(line.size() <= 132, line.constData());
    const QList<QByteArray> fields = line.split(' ');
    QVERIFY(std::abs(fields.at(3).toDouble() * -7000 - 1) < 1e-7);
    QVERIFY(std::abs(fields.at(8).toDouble() * 39 - 1) < 1e-7);
}

void tst_named_values::mistakeIsReported_data()
{
    QTest::addColumn<QByteArray>("deck");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    addDefinitionRows();
    addFieldRows();
    addOptimisationRows();
}

void tst_named_values::addDefinitionRows()
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
        {"nothing defined",          "SY",                   2121, "has ''"},
        {"only a remark",            "SY ! nothing",         2121, "has ''"},
        {"no sign",                  "SY LENGTH 0.5",        2121, "'LENGTH 0.5'"},
        {"no name",                  "SY =0.5",              2121, "'=0.5'"},
        {"no value",                 "SY A=",                2121, "'A='"},
        {"comma at the end",         "SY A=1,",              2121, "has ''"},
        {"name begins with a digit", "SY 2A=1",              2122, "'2A' cannot be the name of a value, it must begin with a letter"},
        {"a number for a name",      "SY 1e3=1",             2122, "'1e3'"},
        {"sign in the name",         "SY A-B=1",             2122, "'A-B'"},
        {"blank in the name",        "SY A B=1",             2122, "'A B'"},
        {"name of a card",           "SY gw=1",              2122, "a card is called so"},
        {"name of this card",        "SY SY=1",              2122, "a card is called so"},
        {"not a number for a name",  "SY NaN=1",             2122, "reads like a number"},
        {"infinity for a name",      "SY inf=1",             2122, "reads like a number"},
        {"name of 33 letters",       "SY ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefg=1", 2122, "longer than 32"},
        {"doubled name",             "SY A=1,a=2",           2123, "the name a has a value already, from line 4"},
        {"unknown name",             "SY A=2*B",             2124, "the value of A uses the name 'B'"},
        {"name that comes later",    "SY A=B,B=2",           2124, "'B'"},
        {"its own value",            "SY A=A+1",             2124, "'A'"},
        {"bad expression",           "SY A=2*",              2125, "the value of A is no number, name or expression but '2*'"},
        {"two values",               "SY A=1=2",             2125, "'1=2'"},
        {"two numbers",              "SY A=1 2",             2125, "'1 2'"},
        {"division by 0",            "SY A=1,B=A/(A-1)",     2126, "the value of B divides by 0, 'A/(A-1)'"},
        {"not finite",               "SY A=1e300*1e300",     2127, "the value of A is out of range"},
        {"beyond reason",            "SY A=1e16",            2127, "'1e16'"},
        {"other script's letter",    "SY \xc3\xa4=1",        2108, "not ASCII"},
        {"blank before the card",    " SY A=1",              2109, "begins with a blank"},
    };
    // clang-format on
    for (const Row& row : table) {
        QTest::newRow(row.name) << deckWith((QByteArray(row.card) + "\nSY H=0.25").constData(),
                                            wireLine)
                                << row.number << 4 << latin1(row.reason);
    }
    const QByteArray blanks(1000, ' ');
    QTest::newRow("too long") << deckWith(("SY H=" + blanks + "0.25\nSY H=0.25").constData(),
                                          wireLine)
                              << 2107 << 4 << latin1("at most 1000");
    QByteArray many;
    for (int i = 0; i < 1001; ++i) {
        many += "SY A" + QByteArray::number(i) + "=1\n";
    }
    QTest::newRow("too many") << deckWith((many + "SY H=0.25").constData(),
                                          "GW 1 21 0 0 -0.25 0 0 0.25 0.001")
                              << 2128 << 1004 << latin1("more than 1000 names");
}

void tst_named_values::addFieldRows()
{
    struct Row
    {
        const char* name;
        const char* wire;
        int number;
        const char* reason;
    };
    // clang-format off
    static const Row table[] = {
        {"unknown name in a field",   "GW 1 21 0 0 -H 0 0 HH 0.001",       2124, "field 8 of card GW uses the name 'HH'"},
        {"word for a whole number",   "GW one 21 0 0 -H 0 0 H 0.001",      2124, "field 1 of card GW uses the name 'one'"},
        {"bad expression in a field", "GW 1 21 0 0 -H 0 0 2H 0.001",       2125, "field 8 of card GW is no number, name or expression but '2H'"},
        {"open parenthesis",          "GW 1 21 0 0 -(H 0 0 H 0.001",       2125, "'-(H'"},
        {"Fortran exponent",          "GW 1 21 0 0 -H 0 0 H 1.0D-3",       2125, "'1.0D-3'"},
        {"field divides by 0",        "GW 1 21 0 0 -H/0 0 0 H 0.001",      2126, "field 5 of card GW divides by 0, '-H/0'"},
        {"field not finite",          "GW 1 21 0 0 -H 0 0 H*1e308*1e308 0.001", 2127, "field 8"},
        {"field beyond reason",       "GW 1 21 0 0 -H 0 0 H*1e17 0.001",   2106, "field 8"},
        {"fraction of segments",      "GW 1 H*42 0 0 -H 0 0 H 0.001",      2105, "field 2 of card GW must be a whole number and is '10.5'"},
        {"segments beyond integers",  "GW 1 H*1e12 0 0 -H 0 0 H 0.001",    2106, "field 2"},
        {"blanks in an expression",   "GW 1 21 0 0 -H 0 0 H / 1 0.001",    2103, "at most 9 fields"},
        {"radius becomes 0",          "GW 1 21 0 0 -H 0 0 H H-0.25",       2304, "radius must be greater than 0"},
    };
    // clang-format on
    for (const Row& row : table) {
        QTest::newRow(row.name) << deckWith("SY H=0.25", row.wire) << row.number << 5
                                << latin1(row.reason);
    }
    QTest::newRow("used before it is defined")
        << deckWith("GW 1 21 0 0 -0.25 0 0 H 0.001", "SY H=0.25") << 2124 << 4
        << latin1("no SY card before it");
    QTest::newRow("defined behind the end")
        << deckWith("SY A=1", "GW 1 21 0 0 -0.25 0 0 H 0.001") + "SY H=0.25\n"
        << 2124 << 5 << latin1("'H'");
    QTest::newRow("plain cards stay checked")
        << deckWith("SY H=0.25", "GW 1 21.5 0 0 -H 0 0 H 0.001") << 2105 << 5 << latin1("'21.5'");
    QTest::newRow("cannot be shortened enough")
        << deckWith("SY H=0.25", QByteArray("GW 1 21 0." + QByteArray(60, '0') + " 0." +
                                            QByteArray(50, '0') + " -H/3 0 H/7 H 0.001")
                                     .constData())
        << 2107 << 5 << latin1("at most 132");
}

void tst_named_values::addOptimisationRows()
{
    struct Row
    {
        const char* name;
        const char* comment;
        int number;
        int line;
        const char* reason;
    };
    // clang-format off
    static const Row table[] = {
        {"nothing to optimise",  "CM @optimise",                              2131, 2, "is '@optimise'"},
        {"no range",             "CM @optimise H",                            2131, 2, "'@optimise H'"},
        {"no end",               "CM @optimise H FROM 0.2",                   2131, 2, "FROM LOW TO HIGH"},
        {"word for a number",    "CM @optimise H FROM low TO 0.3",            2131, 2, "low"},
        {"other words",          "CM @optimise H BETWEEN 0.2 AND 0.3",        2131, 2, "BETWEEN"},
        {"no frequency",         "CM @optimise H FROM 0.2 TO 0.3 AT",         2131, 2, "AT"},
        {"word for a frequency", "CM @optimise H FROM 0.2 TO 0.3 AT noon",    2131, 2, "noon"},
        {"unit behind",          "CM @optimise H FROM 0.2 TO 0.3 AT 300 MHz", 2131, 2, "MHz"},
        {"infinite end",         "CM @optimise H FROM 0.2 TO 1e99",           2131, 2, "1e99"},
        {"second one",           "CM @optimise H FROM 0.2 TO 0.3\nCM @optimise H FROM 0.2 TO 0.3", 2132, 3, "first is in line 2"},
        {"unknown value",        "CM @optimise M FROM 0.2 TO 0.3",            2133, 2, "no SY card gives 'M' a value"},
        {"expression",           "CM @optimise Q FROM 0.2 TO 0.6",            2134, 4, "Q is to be optimised and must be a plain number"},
        {"range upside down",    "CM @optimise H FROM 0.3 TO 0.2",            2135, 2, "from 0.3 to 0.2"},
        {"empty range",          "CM @optimise H FROM 0.25 TO 0.25",          2135, 2, "from 0.25 to 0.25"},
        {"value below",          "CM @optimise H FROM 0.26 TO 0.3",           2136, 2, "H is 0.25, outside"},
        {"value above",          "CM @optimise H FROM 0.2 TO 0.24",           2136, 2, "from 0.2 to 0.24"},
        {"frequency 0",          "CM @optimise H FROM 0.2 TO 0.3 AT 0",       2401, 2, "is 0"},
        {"frequency negative",   "CM @optimise H FROM 0.2 TO 0.3 AT -300",    2401, 2, "-300"},
    };
    // clang-format on
    for (const Row& row : table) {
        QTest::newRow(row.name) << deckWith("SY H=0.25, Q=2*H", wireLine, row.comment) << row.number
                                << row.line << latin1(row.reason);
    }
}

void tst_named_values::mistakeIsReported()
{
    QFETCH(QByteArray, deck);
    QFETCH(int, number);
    QFETCH(int, line);
    QFETCH(QString, reason);
    const Preprocessor checked(deck);
    bool isFound = false;
    QStringList all;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        all.append(QStringLiteral("%1 line %2: %3")
                       .arg(finding.number())
                       .arg(finding.line)
                       .arg(finding.reason));
        isFound = isFound || (finding.number() == number && finding.line == line &&
                              finding.reason.contains(reason));
    }
    QVERIFY2(isFound, qPrintable(all.join(QLatin1Char('\n'))));
}

// Where a value with a mistake is used nothing more is told.
void tst_named_values::oneMistakeIsToldOnce()
{
    const QByteArray deck = deckWith("SY H=1/0\nSY G=H*2", "GW 1 21 0 0 -H 0 0 G 0.001");
    const auto found = mistakes(Preprocessor(deck));
    QCOMPARE(found.first(), qMakePair(2126, 4));
    for (const auto& mistake : found) {
        const bool isOfNames = mistake.first >= 2121 && mistake.first <= 2128;
        QVERIFY(!isOfNames || mistake.second == 4);
        QVERIFY(mistake.first != 2104);
    }
}

// Words in a deck without SY cards are what they were: no numbers.
void tst_named_values::deckWithoutNamesKnowsNone()
{
    const auto found = mistakes(Preprocessor(deckWith("GM 0 0 0 0 0 0 0 0", wireLine)));
    QCOMPARE(found.mid(0, 2), (QVector<QPair<int, int>>{{2104, 5}, {2104, 5}}));
    for (const auto& mistake : found) {
        QVERIFY(mistake.first < 2121 || mistake.first > 2128);
    }
}

void tst_named_values::optimisationIsRead_data()
{
    QTest::addColumn<QByteArray>("comment");
    QTest::addColumn<double>("frequency");
    QTest::newRow("with a frequency")
        << QByteArray("CM @optimise H FROM 0.2 TO 0.3 AT 310.5") << 310.5;
    QTest::newRow("without") << QByteArray("CM @optimise H FROM 0.2 TO 0.3") << 295.0;
    QTest::newRow("other case") << QByteArray("cm @Optimise h from 0.2 to 0.3 at 310.5") << 310.5;
    QTest::newRow("blanks") << QByteArray("CM   @optimise\tH  FROM  2e-1  TO .3  ") << 295.0;
}

void tst_named_values::optimisationIsRead()
{
    QFETCH(QByteArray, comment);
    QFETCH(double, frequency);
    const Preprocessor checked(deckWith("SY H=0.25", wireLine, comment.constData()));
    QCOMPARE(mistakes(checked), (QVector<QPair<int, int>>()));
    const auto optimisation = checked.model().optimisation;
    QVERIFY(optimisation);
    QCOMPARE(optimisation->value.name, latin1("H"));
    QCOMPARE(optimisation->low, 0.2);
    QCOMPARE(optimisation->high, 0.3);
    QCOMPARE(optimisation->frequency, frequency);
    QCOMPARE(optimisation->value.line, 4);
    QCOMPARE(optimisation->value.column, 5);
    QCOMPARE(optimisation->value.length, 4);
}

void tst_named_values::otherCommentsAreComments()
{
    for (const char* comment :
         {"CM optimise H FROM 0.2 TO 0.3", "CM see @optimise", "CM @optimised", "CM @", "CM"}) {
        const Preprocessor checked(deckWith("SY H=0.25", wireLine, comment));
        QCOMPARE(mistakes(checked), (QVector<QPair<int, int>>()));
        QVERIFY2(!checked.model().optimisation, comment);
    }
}

void tst_named_values::variablesArePrinted()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), latin1("m.nec"),
                       deckWith("SY H=0.25, Third=1/3\nSY big=2e14", wireLine))
                 .isEmpty());
    const SuiteResult result =
        runSuite(prekestProgram(), {latin1("m"), latin1("--print-variables")}, folder.path());
    QCOMPARE(result.exitCode, 0);
    const QStringList variables = result.bodies(latin1("variable"));
    QCOMPARE(variables.mid(variables.size() - 3),
             QStringList({latin1("H = 0.25"), latin1("Third = 0.3333333333333333"),
                          latin1("big = 2e+14")}));
}

// The result is that of the same deck with plain numbers.
void tst_named_values::installedModelIsSolved()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(latin1("tune.nec"), folder.path()).isEmpty());
    QByteArray plain = readFile(folder.filePath(latin1("tune.nec")));
    plain.replace("CM @optimise LENGTH FROM 0.4 TO 0.6 AT 300\n", "");
    plain.replace("SY LENGTH=0.5 ! metres\n", "").replace("LENGTH/2", "0.25");
    QVERIFY(!plain.contains("SY"));
    QVERIFY(!writeFile(folder.path(), latin1("plain.nec"), plain).isEmpty());
    for (const char* name : {"tune", "plain"}) {
        QCOMPARE(runSuite(runkestProgram(), {latin1(name)}, folder.path()).exitCode, 0);
    }
    QVERIFY(!readFile(folder.filePath(latin1("tune.csv"))).isEmpty());
    QCOMPARE(readFile(folder.filePath(latin1("tune.csv"))),
             readFile(folder.filePath(latin1("plain.csv"))));
}

void tst_named_values::manyNamesTakeLittleTime()
{
    QElapsedTimer clock;
    clock.start();
    const Preprocessor doubled(
        deckWith(QByteArray("SY A=1\n").repeated(500000).constData(), wireLine));
    QVERIFY(doubled.findings().contains(suite::FindingKind::SecondDefinition));
    QVERIFY2(clock.elapsed() < 30000, qPrintable(QString::number(clock.elapsed())));
}

// Whatever stands in the cards, there is a mistake or every number is one.
void tst_named_values::randomDecksAreSurvived()
{
    static const QByteArray often = "HA01.e+-*/()=, !@_SYGW\t";
    QRandomGenerator random = TestRandom::usual(8);
    for (int i = 0; i < 3000; ++i) {
        QByteArray noise;
        for (int length = random.bounded(30); length > 0; --length) {
            noise += often.at(random.bounded(often.size()));
        }
        const QByteArray definition = "SY H=0.25\nSY A=" + noise;
        const QByteArray wire = "GW 1 21 0 0 -H 0 0 " + noise.left(random.bounded(10)) + " 0.001";
        const Preprocessor checked(deckWith(definition.constData(), wire.constData()));
        if (!mistakes(checked).isEmpty()) {
            continue;
        }
        const QList<QByteArray> fields = engineLine(checked, "GW 1").split(' ').mid(1);
        QCOMPARE(fields.size(), 9);
        for (const QByteArray& field : fields) {
            bool isNumber = false;
            QVERIFY2(std::isfinite(field.toDouble(&isNumber)) && isNumber, wire.constData());
        }
    }
}

QTEST_GUILESS_MAIN(tst_named_values)
#include "tst_named_values.moc"
