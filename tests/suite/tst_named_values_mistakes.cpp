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
    QTest::addColumn<QByteArray>("deck");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    addDefinitionRows();
    addFieldRows();
    addOptimisationRows();
}

void tst_named_values_mistakes::addDefinitionRows()
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

void tst_named_values_mistakes::addFieldRows()
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

void tst_named_values_mistakes::addOptimisationRows()
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

void tst_named_values_mistakes::mistakeIsReported()
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
