// SPDX-License-Identifier: MIT
#include <EnvironmentVariable.h>

#include <QProcess>
#include <QtTest>

class tst_EnvironmentVariable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsNamesAndValuesOfAnyCharacters_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        // clang-format off
        QTest::newRow("ASCII")           << "KEST_T_NAME"                 << "/home/kest";
        QTest::newRow("blanks")          << "KEST_T_BLANKS"               << "  two  words ";
        QTest::newRow("umlaut")          << QStringLiteral("KEST_T_ä")    << QStringLiteral("C:/Läufe/é");
        QTest::newRow("other scripts")   << QStringLiteral("KEST_T_漢字") << QStringLiteral("Ω 漢字 Ж");
        QTest::newRow("beyond 16 bits")  << QStringLiteral("KEST_T_📡")   << QStringLiteral("📡📶");
        QTest::newRow("brackets")        << "KEST_T (x86)"                << "C:\\Program Files (x86)";
        QTest::newRow("very long")       << "KEST_T_LONG"                 << QString(5000, QLatin1Char('x'));
        // clang-format on
    }

    void keepsNamesAndValuesOfAnyCharacters()
    {
        QFETCH(QString, name);
        QFETCH(QString, value);
        QVERIFY(!EnvironmentVariable::exists(name));
        QCOMPARE(EnvironmentVariable::value(name), QString());
        QVERIFY(EnvironmentVariable::set(name, value));
        QVERIFY(EnvironmentVariable::exists(name));
        QCOMPARE(EnvironmentVariable::value(name), value);
        QCOMPARE(QProcessEnvironment::systemEnvironment().value(name),
                 value); // for child processes
    }

    void qtReadsWhatIsSet()
    {
        const QString value = QStringLiteral("Läufe 漢字");
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T_FOR_QT"), value));
        QCOMPARE(qEnvironmentVariable("KEST_T_FOR_QT"), value);
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T_FOR_QT"), QStringLiteral("b")));
        QCOMPARE(qEnvironmentVariable("KEST_T_FOR_QT"), QStringLiteral("b"));
    }

    void readsWhatQtSets()
    {
        qputenv("KEST_T_BY_QT", "a b");
        QCOMPARE(EnvironmentVariable::value(QStringLiteral("KEST_T_BY_QT")), QStringLiteral("a b"));
        qunsetenv("KEST_T_BY_QT");
        QVERIFY(!EnvironmentVariable::exists(QStringLiteral("KEST_T_BY_QT")));
    }

    void ignoresTheCaseOfNamesWhereTheSystemDoes()
    {
        QVERIFY(EnvironmentVariable::set(QStringLiteral("KEST_T_Case"), QStringLiteral("1")));
        QCOMPARE(EnvironmentVariable::exists(QStringLiteral("kest_t_cASE")),
                 EnvironmentVariable::caseOfNames() == Qt::CaseInsensitive);
    }
};

QTEST_GUILESS_MAIN(tst_EnvironmentVariable)
#include "tst_EnvironmentVariable.moc"
