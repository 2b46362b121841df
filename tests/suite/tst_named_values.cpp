// SPDX-License-Identifier: MIT
#include "NamedValueDecks.h"
#include "SuiteRun.h"

#include "Preprocessor.h"
#include "SweepDeck.h"

#include <TestRandom.h>

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using suite::Preprocessor;
using suite::SweepDeck;

// Decks may give values names and compute with them; the engine gets plain numbers.
class tst_named_values : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void engineGetsPlainNumbers_data();
    void engineGetsPlainNumbers();
    void cardsWithoutNamesStayAsTheyAre();
    void valuesKeepAllTheirDigits();
    void longCardsFitTheEngine();
    void deckWithoutNamesKnowsNone();
    void optimisationIsRead_data();
    void optimisationIsRead();
    void otherCommentsAreComments();
    void variablesArePrinted();
    void installedModelIsSolved();
    void manyNamesTakeLittleTime();
    void randomDecksAreSurvived();
};

namespace {

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
