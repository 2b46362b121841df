// SPDX-License-Identifier: MIT
#include <common_EnvironmentVariablesExt.h>

#include <EnvironmentVariable.h>

#include <QtTest>

namespace {

struct Variable
{
    const char* name;
    const char* value;
};

// clang-format off
constexpr Variable variables[] = {
    {"KEST_T_HOME",   "/home/kest"},
    {"KEST_T_NESTED", "${KEST_T_HOME}/logs"},
    {"KEST_T_SELF",   "a${KEST_T_SELF}b"},
    {"KEST_T_ONE",    "1${KEST_T_TWO}"},
    {"KEST_T_TWO",    "2%KEST_T_THREE%"},
    {"KEST_T_THREE",  "3$KEST_T_ONE"},
};
// clang-format on

} // namespace

class tst_common_EnvironmentVariablesExt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const Variable& variable : variables) {
            qputenv(variable.name, variable.value);
        }
        qunsetenv("KEST_T_UNSET");
    }

    void unsetIsEmpty()
    {
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_UNSET"), QString());
    }

    void expands_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("expanded");
        // clang-format off
        QTest::newRow("empty")                   << QByteArray("")                          << "";
        QTest::newRow("plain")                   << QByteArray("/tmp/a b")                  << "/tmp/a b";
        QTest::newRow("braces")                  << QByteArray("<${KEST_T_HOME}>")          << "</home/kest>";
        QTest::newRow("dollar")                  << QByteArray("$KEST_T_HOME/x")            << "/home/kest/x";
        QTest::newRow("percent")                 << QByteArray("%KEST_T_HOME%x")            << "/home/kestx";
        QTest::newRow("all three")               << QByteArray("${KEST_T_HOME}$KEST_T_HOME%KEST_T_HOME%") << "/home/kest/home/kest/home/kest";
        QTest::newRow("reference in a value")    << QByteArray("$KEST_T_NESTED/run")        << "/home/kest/logs/run";
        QTest::newRow("refers to itself")        << QByteArray("<$KEST_T_SELF>")            << "<ab>";
        QTest::newRow("circle")                  << QByteArray("$KEST_T_ONE")               << "123";
        QTest::newRow("twice is no circle")      << QByteArray("$KEST_T_HOME:$KEST_T_HOME") << "/home/kest:/home/kest";
        QTest::newRow("lone signs stay")         << QByteArray("50% $ 100%")                << "50% $ 100%";
        QTest::newRow("open brace stays")        << QByteArray("${KEST_T_HOME")             << "${KEST_T_HOME";
        QTest::newRow("empty name stays")        << QByteArray("${}%%")                     << "${}%%";
        QTest::newRow("digit begins no name")    << QByteArray("$1")                        << "$1";
        QTest::newRow("not ASCII stays")         << QByteArray("/caf\xc3\xa9/$KEST_T_HOME") << QString::fromUtf8("/caf\xc3\xa9//home/kest");
        // clang-format on
    }

    void expands()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, expanded);
        EnvironmentVariable::set(QStringLiteral("KEST_T_VALUE"), QString::fromUtf8(value));
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_VALUE"), expanded);
    }

    void expandsNamesOfAnyCharacters_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("expanded");
        // clang-format off
        QTest::newRow("percent, brackets")    << QStringLiteral("<%KEST_T (x86)%>")      << QStringLiteral("<Läufe (x86)>");
        QTest::newRow("percent, umlaut")      << QStringLiteral("<%KEST_T_ä%>")          << QStringLiteral("<Ω>");
        QTest::newRow("braces, umlaut")       << QStringLiteral("<${KEST_T_ä}>")         << QStringLiteral("<Ω>");
        QTest::newRow("dollar, umlaut")       << QStringLiteral("$KEST_T_ä")             << QStringLiteral("Ω");
        QTest::newRow("unknown brackets")     << QStringLiteral("<%KEST_T (x64)%>")      << QStringLiteral("<%KEST_T (x64)%>");
        QTest::newRow("behind a lone sign")   << QStringLiteral("50% of %KEST_T (x86)%") << QStringLiteral("50% of Läufe (x86)");
        QTest::newRow("between lone signs")   << QStringLiteral("1% %KEST_T_ä% 2%")      << QStringLiteral("1% Ω 2%");
        QTest::newRow("share of a host")      << QStringLiteral("\\\\host\\logs$\\x")    << QStringLiteral("\\\\host\\logs$\\x");
        // clang-format on
    }

    void expandsNamesOfAnyCharacters()
    {
        QFETCH(QString, value);
        QFETCH(QString, expanded);
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T (x86)"),
                                         QStringLiteral("Läufe (x86)")));
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T_ä"), QStringLiteral("Ω")));
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T_VALUE"), value));
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_VALUE"), expanded);
    }

    // On Windows "$" is a usual part of the names of shares.
    void aReferenceToNoVariableIsEmptyOrStaysAsTheSystemHasIt()
    {
        const bool stays = EnvironmentVariable::unknownReferencesStay();
        qputenv("KEST_T_EMPTY", "");
        qputenv("KEST_T_VALUE", "//host/$KEST_T_NONE/%KEST_T_EMPTY%/${KEST_T_NONE}");
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_VALUE"),
                 stays ? QStringLiteral("//host/$KEST_T_NONE/%KEST_T_EMPTY%/${KEST_T_NONE}")
                       : QStringLiteral("//host///"));
    }

    void aVariableThatRefersToItselfEndsWithNothing()
    {
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_SELF"),
                 QStringLiteral("ab"));
    }

    void aLongChainOfVariablesIsExpanded()
    {
        constexpr int length = 200;
        for (int link = 0; link < length; ++link) {
            const QByteArray name = QByteArray("KEST_T_LINK") + QByteArray::number(link);
            qputenv(name.constData(), QByteArray("x$KEST_T_LINK") + QByteArray::number(link + 1));
        }
        qputenv("KEST_T_LINK200", "end");
        QCOMPARE(common_EnvironmentVariablesExt::getVariableExpanded("KEST_T_LINK0"),
                 QString(length, QLatin1Char('x')) + QStringLiteral("end"));
    }
};

int main(int argc, char* argv[])
{
    // Values are decoded as the locale says, and the test's are UTF-8.
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    tst_common_EnvironmentVariablesExt test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_EnvironmentVariablesExt.moc"
