// SPDX-License-Identifier: MIT
#include "Expression.h"
#include "NamedValues.h"

#include <ReadingTime.h>
#include <TestRandom.h>

#include <QtTest>

#include <cmath>

using suite::evaluate;
using suite::ExpressionFault;
using suite::ExpressionResult;

Q_DECLARE_METATYPE(suite::ExpressionFault)

// Expressions have the value that arithmetic gives them, and every mistake is told from the others.
class tst_expression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void value_data();
    void value();
    void fault_data();
    void fault();
    void unknownNameIsTold();
    void randomExpressionsHaveTheirValue();
    void randomTextIsSurvived();
    void timeGrowsWithTheLength_data();
    void timeGrowsWithTheLength();
    void plainNumbersComeBack_data();
    void plainNumbersComeBack();
};

namespace {

suite::NamedValues names()
{
    suite::NamedValues result;
    const auto add = [&result](const char* name, double value) {
        suite::NamedValue named;
        named.name = QLatin1String(name);
        named.value = value;
        result.add(named);
    };
    add("L", 0.5);
    add("Two_2", 2);
    add("e3", 7);
    add("Zero", 0);
    add("Wrong", std::nan(""));
    return result;
}

struct Sample
{
    QString text;
    double value = 0;
};

// An expression of random operations, fully in parentheses, beside its value.
Sample randomSample(QRandomGenerator& random, int depth)
{
    if (depth == 0 || random.bounded(4) == 0) {
        const double number = random.bounded(1000) / 8.0 + 1;
        return random.bounded(3) == 0 ? Sample{QStringLiteral("L"), 0.5}
                                      : Sample{QString::number(number, 'g', 17), number};
    }
    const Sample left = randomSample(random, depth - 1);
    const Sample right = randomSample(random, depth - 1);
    const int operation = random.bounded(5);
    const QString blank = random.bounded(2) == 0 ? QStringLiteral(" ") : QString();
    const auto joined = [&](char sign) {
        return QStringLiteral("(") + left.text + blank + QLatin1Char(sign) + blank + right.text +
               QStringLiteral(")");
    };
    switch (operation) {
    case 0:
        return {joined('+'), left.value + right.value};
    case 1:
        return {joined('-'), left.value - right.value};
    case 2:
        return {joined('*'), left.value * right.value};
    case 3:
        return {QStringLiteral("-(") + left.text + QStringLiteral(")"), -left.value};
    default:
        return right.value == 0 ? left : Sample{joined('/'), left.value / right.value};
    }
}

} // namespace

void tst_expression::value_data()
{
    QTest::addColumn<double>("expected");
    const auto add = [](const char* text, double expected) { QTest::newRow(text) << expected; };
    add("1", 1);
    add("1.", 1);
    add(".5", 0.5);
    add("1e3", 1000);
    add("1.5E-2", 0.015);
    add("L", 0.5);
    add("l", 0.5);
    add("-L", -0.5);
    add("+L", 0.5);
    add("--L", 0.5);
    add("2*L", 1);
    add("L*2", 1);
    add("L/4", 0.125);
    add("L+1", 1.5);
    add("L-1", -0.5);
    add("-L/2", -0.25);
    add("3*-L", -1.5);
    add("1-2-3", -4);
    add("8/4/2", 1);
    add("1+2*3", 7);
    add("(1+2)*3", 9);
    add("2*(L+(1-L/2))", 2.5);
    add("TWO_2*two_2", 4);
    add("e3", 7);
    add("1e3+e3", 1007);
    add("2-1e-1", 1.9);
    add(" 1 +\tL ", 1.5);
    add("0*L", 0);
    add("Zero/L", 0);
}

void tst_expression::value()
{
    QFETCH(double, expected);
    const ExpressionResult result = evaluate(QString::fromLatin1(QTest::currentDataTag()), names());
    QCOMPARE(static_cast<int>(result.fault), static_cast<int>(ExpressionFault::None));
    QCOMPARE(result.value, expected);
}

void tst_expression::fault_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("fault");
    const auto add = [](const char* text, ExpressionFault fault) {
        QTest::newRow(text) << QString::fromUtf8(text) << static_cast<int>(fault);
    };
    for (const char* text :
         {"-",    "1+",     "*2",     "1 2",      "2L",     "L 2",  "1..2", "1.2.3",
          "1e",   "1e+",    "2e*L",   "0x10",     "1.0D-3", "()",   "(1",   "1)",
          "(1))", "L=2",    "L^2",    "2**3",     "1,5",    ".",    "_L",   "$L",
          "L!",   "\u0661", "\u00e4", "2\u00d73", "L(2)",   "(2)L", "1e3L"}) {
        add(text, ExpressionFault::Malformed);
    }
    QTest::newRow("empty") << QString() << static_cast<int>(ExpressionFault::Malformed);
    QTest::newRow("blank") << QStringLiteral("  ") << static_cast<int>(ExpressionFault::Malformed);
    QTest::newRow("end of text within")
        << QString(QStringLiteral("1") + QChar(0) + QStringLiteral("+1"))
        << static_cast<int>(ExpressionFault::Malformed);
    for (const char* text : {"M", "L+M", "LL", "L2", "inf", "nan", "sin(1)", "-x/2"}) {
        add(text, ExpressionFault::UnknownName);
    }
    for (const char* text : {"Wrong", "1+wrong*2"}) {
        add(text, ExpressionFault::UnusableName);
    }
    for (const char* text : {"1/0", "L/Zero", "1/(L-L)", "0/0", "1/-0"}) {
        add(text, ExpressionFault::DivisionByZero);
    }
    for (const char* text :
         {"1e999", "1e300*1e300", "1/(1e300*1e300)", "-1e308-1e308", "1e300/1e-300"}) {
        add(text, ExpressionFault::OutOfRange);
    }
}

void tst_expression::fault()
{
    QFETCH(QString, text);
    QFETCH(int, fault);
    const ExpressionResult result = evaluate(text, names());
    QCOMPARE(static_cast<int>(result.fault), fault);
    QCOMPARE(result.value, 0.0);
}

void tst_expression::unknownNameIsTold()
{
    QCOMPARE(evaluate(QStringLiteral("2*(L+Length_1)"), names()).culprit,
             QStringLiteral("Length_1"));
}

void tst_expression::randomExpressionsHaveTheirValue()
{
    QRandomGenerator random = TestRandom::usual(4);
    for (int i = 0; i < 5000; ++i) {
        const Sample sample = randomSample(random, 5);
        const ExpressionResult result = evaluate(sample.text, names());
        QVERIFY2(result.fault == ExpressionFault::None, qPrintable(sample.text));
        QVERIFY2(result.value == sample.value, qPrintable(sample.text));
    }
}

// Whatever it is, it is a fault or a number; characters of expressions come often.
void tst_expression::randomTextIsSurvived()
{
    static const QString often = QStringLiteral("LLll019.eE+-*/()  _Zx\t=");
    QRandomGenerator random = TestRandom::usual(5);
    int good = 0;
    for (int i = 0; i < 100000; ++i) {
        QString text;
        for (int length = random.bounded(12); length > 0; --length) {
            const bool isOdd = random.bounded(40) == 0;
            text += isOdd ? QChar(static_cast<ushort>(random.bounded(0x10000)))
                          : often.at(random.bounded(often.size()));
        }
        const ExpressionResult result = evaluate(text, names());
        QVERIFY(std::isfinite(result.value));
        if (result.fault == ExpressionFault::None) {
            ++good;
            QVERIFY(!text.contains(QLatin1Char('=')));
            // What has a value has the same one in parentheses and between blanks.
            const ExpressionResult again =
                evaluate(QStringLiteral("( ") + text + QStringLiteral(" )"), names());
            QVERIFY2(again.fault == ExpressionFault::None, qPrintable(text));
            QCOMPARE(again.value, result.value);
        }
    }
    QVERIFY2(good > 1000, qPrintable(QString::number(good)));
}

void tst_expression::timeGrowsWithTheLength_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<ExpressionFault>("fault");
    const auto row = [](const char* name, const char* piece, const char* end,
                        ExpressionFault fault) {
        QTest::newRow(name) << QByteArray(piece) << QByteArray(end) << fault;
    };
    row("parentheses", "(", "", ExpressionFault::Malformed);
    row("signs", "-+", "L", ExpressionFault::None);
    row("sum", "1+", "1", ExpressionFault::None);
    row("names", "L*2*", "1", ExpressionFault::None);
    row("digits", "0", "", ExpressionFault::None);
    row("letters", "L", "", ExpressionFault::UnknownName);
}

void tst_expression::timeGrowsWithTheLength()
{
    QFETCH(QByteArray, piece);
    QFETCH(QByteArray, end);
    QFETCH(ExpressionFault, fault);
    const auto evaluated = [&end](const QByteArray& text) {
        return evaluate(QString::fromLatin1(text + end), names());
    };
    QCOMPARE(evaluated(piece.repeated(100000)).fault, fault);
    QCOMPARE(ReadingTime::problem(evaluated, piece), QString());
}

void tst_expression::plainNumbersComeBack_data()
{
    QTest::addColumn<double>("number");
    for (const double number :
         {0.0, 1.0, -0.25, 0.1, 1.0 / 3, -1e-300, 123456789.123456789, 1e15}) {
        QTest::newRow(QByteArray::number(number, 'g', 17).constData()) << number;
    }
}

void tst_expression::plainNumbersComeBack()
{
    QFETCH(double, number);
    const QString text = suite::plainNumber(number);
    QVERIFY(suite::isPlainNumber(text));
    QVERIFY(evaluate(text, {}).value == number);
}

QTEST_APPLESS_MAIN(tst_expression)
#include "tst_expression.moc"
