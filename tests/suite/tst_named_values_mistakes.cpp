// SPDX-License-Identifier: MIT
#include "ChangedDeck.h"
#include "NamedValueDecks.h"
#include "Preprocessor.h"

#include <QtTest>

using suite::Preprocessor;

// Every mistake in named values is reported where it stands, once.
class tst_named_values_mistakes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mistakeIsReported_data();
    void mistakeIsReported();
    void oneMistakeIsToldOnce();

private:
    static void addDefinitionRows();
    static void addFieldRows();
    static void addOptimisationRows();
};

void tst_named_values_mistakes::mistakeIsReported_data()
{
    DeckMistake::addColumns();
    addDefinitionRows();
    addFieldRows();
    addOptimisationRows();
}

void tst_named_values_mistakes::addDefinitionRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"nothing defined",          4, "SY",                   2121, "has ''"},
        {"only a remark",            4, "SY ! nothing",         2121, "has ''"},
        {"no sign",                  4, "SY LENGTH 0.5",        2121, "'LENGTH 0.5'"},
        {"no name",                  4, "SY =0.5",              2121, "'=0.5'"},
        {"no value",                 4, "SY A=",                2121, "'A='"},
        {"comma at the end",         4, "SY A=1,",              2121, "has ''"},
        {"name begins with a digit", 4, "SY 2A=1",              2122, "'2A' cannot be the name of a value, it must begin with a letter"},
        {"a number for a name",      4, "SY 1e3=1",             2122, "'1e3'"},
        {"sign in the name",         4, "SY A-B=1",             2122, "'A-B'"},
        {"blank in the name",        4, "SY A B=1",             2122, "'A B'"},
        {"name of a card",           4, "SY gw=1",              2122, "a card is called so"},
        {"name of this card",        4, "SY SY=1",              2122, "a card is called so"},
        {"not a number for a name",  4, "SY NaN=1",             2122, "reads like a number"},
        {"infinity for a name",      4, "SY inf=1",             2122, "reads like a number"},
        {"name of 33 letters",       4, "SY ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefg=1", 2122, "longer than 32"},
        {"doubled name",             4, "SY A=1,a=2",           2123, "the name a has a value already, from line 4"},
        {"unknown name",             4, "SY A=2*B",             2124, "the value of A uses the name 'B'"},
        {"name that comes later",    4, "SY A=B,B=2",           2124, "'B'"},
        {"its own value",            4, "SY A=A+1",             2124, "'A'"},
        {"bad expression",           4, "SY A=2*",              2125, "the value of A is no number, name or expression but '2*'"},
        {"two values",               4, "SY A=1=2",             2125, "'1=2'"},
        {"two numbers",              4, "SY A=1 2",             2125, "'1 2'"},
        {"division by 0",            4, "SY A=1,B=A/(A-1)",     2126, "the value of B divides by 0, 'A/(A-1)'"},
        {"not finite",               4, "SY A=1e300*1e300",     2127, "the value of A is out of range"},
        {"beyond reason",            4, "SY A=1e16",            2127, "'1e16'"},
        {"other script's letter",    4, "SY \xc3\xa4=1",        2108, "not ASCII"},
        {"blank before the card",    4, " SY A=1",              2109, "begins with a blank"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(deckWith((QByteArray(row.text) + "\nSY H=0.25").constData(), wireLine));
    }
    const QByteArray blanks(1000, ' ');
    DeckMistake::add("too long",
                     deckWith(("SY H=" + blanks + "0.25\nSY H=0.25").constData(), wireLine), 2107,
                     4, "at most 1000");
    QByteArray many;
    for (int i = 0; i < 1001; ++i) {
        many += "SY A" + QByteArray::number(i) + "=1\n";
    }
    DeckMistake::add("too many",
                     deckWith((many + "SY H=0.25").constData(), "GW 1 21 0 0 -0.25 0 0 0.25 0.001"),
                     2128, 1004, "more than 1000 names");
}

void tst_named_values_mistakes::addFieldRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"unknown name in a field",   5, "GW 1 21 0 0 -H 0 0 HH 0.001",       2124, "field 8 of card GW uses the name 'HH'"},
        {"word for a whole number",   5, "GW one 21 0 0 -H 0 0 H 0.001",      2124, "field 1 of card GW uses the name 'one'"},
        {"bad expression in a field", 5, "GW 1 21 0 0 -H 0 0 2H 0.001",       2125, "field 8 of card GW is no number, name or expression but '2H'"},
        {"open parenthesis",          5, "GW 1 21 0 0 -(H 0 0 H 0.001",       2125, "'-(H'"},
        {"Fortran exponent",          5, "GW 1 21 0 0 -H 0 0 H 1.0D-3",       2125, "'1.0D-3'"},
        {"field divides by 0",        5, "GW 1 21 0 0 -H/0 0 0 H 0.001",      2126, "field 5 of card GW divides by 0, '-H/0'"},
        {"field not finite",          5, "GW 1 21 0 0 -H 0 0 H*1e308*1e308 0.001", 2127, "field 8"},
        {"field beyond reason",       5, "GW 1 21 0 0 -H 0 0 H*1e17 0.001",   2106, "field 8"},
        {"fraction of segments",      5, "GW 1 H*42 0 0 -H 0 0 H 0.001",      2105, "field 2 of card GW must be a whole number and is '10.5'"},
        {"segments beyond integers",  5, "GW 1 H*1e12 0 0 -H 0 0 H 0.001",    2106, "field 2"},
        {"blanks in an expression",   5, "GW 1 21 0 0 -H 0 0 H / 1 0.001",    2103, "at most 9 fields"},
        {"radius becomes 0",          5, "GW 1 21 0 0 -H 0 0 H H-0.25",       2304, "radius must be greater than 0"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(deckWith("SY H=0.25", row.text));
    }
    DeckMistake::add("used before it is defined",
                     deckWith("GW 1 21 0 0 -0.25 0 0 H 0.001", "SY H=0.25"), 2124, 4,
                     "no SY card before it");
    DeckMistake::add("defined behind the end",
                     deckWith("SY A=1", "GW 1 21 0 0 -0.25 0 0 H 0.001") + "SY H=0.25\n", 2124, 5,
                     "'H'");
    DeckMistake::add("plain cards stay checked",
                     deckWith("SY H=0.25", "GW 1 21.5 0 0 -H 0 0 H 0.001"), 2105, 5, "'21.5'");
    DeckMistake::add("cannot be shortened enough",
                     deckWith("SY H=0.25", QByteArray("GW 1 21 0." + QByteArray(60, '0') + " 0." +
                                                      QByteArray(50, '0') + " -H/3 0 H/7 H 0.001")
                                               .constData()),
                     2107, 5, "at most 132");
}

void tst_named_values_mistakes::addOptimisationRows()
{
    // clang-format off
    static const DeckMistake table[] = {
        {"nothing to optimise",  2, "CM @optimise",                              2131, "is '@optimise'"},
        {"no range",             2, "CM @optimise H",                            2131, "'@optimise H'"},
        {"no end",               2, "CM @optimise H FROM 0.2",                   2131, "FROM LOW TO HIGH"},
        {"word for a number",    2, "CM @optimise H FROM low TO 0.3",            2131, "low"},
        {"other words",          2, "CM @optimise H BETWEEN 0.2 AND 0.3",        2131, "BETWEEN"},
        {"no frequency",         2, "CM @optimise H FROM 0.2 TO 0.3 AT",         2131, "AT"},
        {"word for a frequency", 2, "CM @optimise H FROM 0.2 TO 0.3 AT noon",    2131, "noon"},
        {"unit behind",          2, "CM @optimise H FROM 0.2 TO 0.3 AT 300 MHz", 2131, "MHz"},
        {"infinite end",         2, "CM @optimise H FROM 0.2 TO 1e99",           2131, "1e99"},
        {"second one",           3, "CM @optimise H FROM 0.2 TO 0.3\nCM @optimise H FROM 0.2 TO 0.3", 2132, "first is in line 2"},
        {"unknown value",        2, "CM @optimise M FROM 0.2 TO 0.3",            2133, "no SY card gives 'M' a value"},
        {"expression",           4, "CM @optimise Q FROM 0.2 TO 0.6",            2134, "Q is to be optimised and must be a plain number"},
        {"range upside down",    2, "CM @optimise H FROM 0.3 TO 0.2",            2135, "from 0.3 to 0.2"},
        {"empty range",          2, "CM @optimise H FROM 0.25 TO 0.25",          2135, "from 0.25 to 0.25"},
        {"value below",          2, "CM @optimise H FROM 0.26 TO 0.3",           2136, "H is 0.25, outside"},
        {"value above",          2, "CM @optimise H FROM 0.2 TO 0.24",           2136, "from 0.2 to 0.24"},
        {"frequency 0",          2, "CM @optimise H FROM 0.2 TO 0.3 AT 0",       2401, "is 0"},
        {"frequency negative",   2, "CM @optimise H FROM 0.2 TO 0.3 AT -300",    2401, "-300"},
    };
    // clang-format on
    for (const DeckMistake& row : table) {
        row.add(deckWith("SY H=0.25, Q=2*H", wireLine, row.text));
    }
}

void tst_named_values_mistakes::mistakeIsReported()
{
    const ReportedDeck expected = ReportedDeck::ofRow();
    const Preprocessor checked(expected.deck);
    bool isFound = false;
    QStringList all;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        all.append(QStringLiteral("%1 line %2: %3")
                       .arg(finding.number())
                       .arg(finding.line)
                       .arg(finding.reason));
        isFound =
            isFound || (finding.number() == expected.number && finding.line == expected.line &&
                        finding.reason.contains(expected.reason));
    }
    QVERIFY2(isFound, qPrintable(all.join(QLatin1Char('\n'))));
}

// Where a value with a mistake is used nothing more is told.
void tst_named_values_mistakes::oneMistakeIsToldOnce()
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

QTEST_GUILESS_MAIN(tst_named_values_mistakes)
#include "tst_named_values_mistakes.moc"
