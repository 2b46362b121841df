// SPDX-License-Identifier: MIT
#include <NearWord.h>

#include <QtTest>

class tst_near_word : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordThatIsNearlyKnownIsFound_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("meant");
        const QString options = QStringLiteral("options");
        const QString machines = QStringLiteral("machines");
        const QString none;
        // clang-format off
        QTest::newRow("the word itself")       << "options"     << options;
        QTest::newRow("abbreviation")          << "opts"        << options;
        QTest::newRow("beginning")             << "opt"         << options;
        QTest::newRow("singular")              << "option"      << options;
        QTest::newRow("exchanged letters")     << "optoins"     << options;
        QTest::newRow("two exchanges")         << "potionss"    << none;
        QTest::newRow("wrong letter")          << "oprions"     << options;
        QTest::newRow("letter too many")       << "optionss"    << options;
        QTest::newRow("upper case")            << "Options"     << options;
        QTest::newRow("the second word")       << "machine"     << machines;
        QTest::newRow("three slips")           << "oxxxons"     << none;
        QTest::newRow("two letters")           << "op"          << none;
        QTest::newRow("another first letter")  << "pptions"     << none;
        QTest::newRow("a model")               << "options.nec" << none;
        QTest::newRow("another word")          << "dipole"      << none;
        QTest::newRow("nothing")               << ""            << none;
        QTest::newRow("very long")             << QString(100000, QLatin1Char('o')) << none;
        // clang-format on
    }

    void wordThatIsNearlyKnownIsFound()
    {
        QFETCH(QString, typed);
        QFETCH(QString, meant);
        QCOMPARE(NearWord::of(typed, {QStringLiteral("options"), QStringLiteral("machines")}),
                 meant);
    }

    void wordsWithoutLettersAreFarFromAll()
    {
        QCOMPARE(NearWord::of(QStringLiteral("abc"), {}), QString());
        QCOMPARE(NearWord::of(QStringLiteral("..."), {QStringLiteral("options")}), QString());
    }
};

QTEST_GUILESS_MAIN(tst_near_word)

#include "tst_near_word.moc"
