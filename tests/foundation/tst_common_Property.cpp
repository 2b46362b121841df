// SPDX-License-Identifier: MIT
#include <common_Property.h>

#include <QtTest>

#include <climits>

namespace {

using MetaData = common_PropertyMetaData;

common_Property newProperty(int type)
{
    return common_Property(MetaData(QStringLiteral("Test.Name"), QString(), MetaData::Type(type),
                                    MetaData::Single, 3));
}

} // namespace

class tst_common_Property : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWithTheInitialValueOfItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("boolean") << int(MetaData::Boolean) << QStringLiteral("false");
        QTest::newRow("string")  << int(MetaData::String)  << QString();
        QTest::newRow("integer") << int(MetaData::Integer) << QStringLiteral("0");
        QTest::newRow("double")  << int(MetaData::Double)  << QStringLiteral("0");
        // clang-format on
    }

    void beginsWithTheInitialValueOfItsType()
    {
        QFETCH(int, type);
        QFETCH(QString, text);
        const common_Property initial = newProperty(type);
        QCOMPARE(initial.name(), QStringLiteral("Test.Name"));
        QCOMPARE(initial.castToBool(), false);
        QCOMPARE(initial.castToInt(), 0);
        QCOMPARE(initial.castToDouble(), 0.0);
        QCOMPARE(initial.castToQString(), text);
    }

    void takesValuesOfItsOwnType()
    {
        common_Property boolean = newProperty(MetaData::Boolean);
        boolean.assignFromBool(true);
        QCOMPARE(boolean.castToBool(), true);
        boolean.assignFromBool(false);
        QCOMPARE(boolean.castToBool(), false);
        common_Property integer = newProperty(MetaData::Integer);
        for (const int value : {1, -1, INT_MAX, INT_MIN, 0}) {
            integer.assignFromInt(value);
            QCOMPARE(integer.castToInt(), value);
        }
        common_Property number = newProperty(MetaData::Double);
        for (const double value : {0.1, -1e300, 5e-324}) {
            number.assignFromDouble(value);
            QCOMPARE(number.castToDouble(), value);
        }
        common_Property text = newProperty(MetaData::String);
        const QStringList texts = {QStringLiteral(" a b\n"), QString(), QStringLiteral("0"),
                                   QString::fromUtf8("\xc3\xa4\xf0\x9f\x94\x92")};
        for (const QString& value : texts) {
            text.assignFromQString(value);
            QCOMPARE(text.castToQString(), value);
        }
    }

    void convertsTextsToItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("assigned");
        QTest::addColumn<bool>("boolean");
        QTest::addColumn<int>("integer");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("true")              << 1 << QStringLiteral("true")        << true  << 1    << QStringLiteral("true");
        QTest::newRow("false")             << 1 << QStringLiteral("false")       << false << 0    << QStringLiteral("false");
        QTest::newRow("0 as boolean")      << 1 << QStringLiteral("0")           << false << 0    << QStringLiteral("false");
        QTest::newRow("1 as boolean")      << 1 << QStringLiteral("1")           << true  << 1    << QStringLiteral("true");
        QTest::newRow("empty as boolean")  << 1 << QString()                     << false << 0    << QStringLiteral("false");
        QTest::newRow("number")            << 3 << QStringLiteral("-12")         << true  << -12  << QStringLiteral("-12");
        QTest::newRow("no number")         << 3 << QStringLiteral("twelve")      << false << 0    << QStringLiteral("0");
        QTest::newRow("beyond int")        << 3 << QStringLiteral("99999999999") << true  << 1215752191 << QStringLiteral("1215752191");
        QTest::newRow("empty as number")   << 3 << QString()                     << false << 0    << QStringLiteral("0");
        QTest::newRow("fraction")          << 5 << QStringLiteral("2.5")         << true  << 3    << QStringLiteral("2.5");
        QTest::newRow("no fraction")       << 5 << QStringLiteral("x")           << false << 0    << QStringLiteral("0");
        QTest::newRow("text of a number")  << 2 << QStringLiteral("12")          << true  << 12   << QStringLiteral("12");
        QTest::newRow("text of a boolean") << 2 << QStringLiteral("false")       << false << 0    << QStringLiteral("false");
        // clang-format on
    }

    void convertsTextsToItsType()
    {
        QFETCH(int, type);
        QFETCH(QString, assigned);
        QFETCH(bool, boolean);
        QFETCH(int, integer);
        QFETCH(QString, text);
        common_Property converted = newProperty(type);
        converted.assignFromQString(assigned);
        QCOMPARE(converted.castToBool(), boolean);
        QCOMPARE(converted.castToInt(), integer);
        QCOMPARE(converted.castToQString(), text);
    }

    void aTextThatIsNoNumberReplacesTheValueBefore()
    {
        common_Property integer = newProperty(MetaData::Integer);
        integer.assignFromInt(5);
        integer.assignFromQString(QStringLiteral("x"));
        QCOMPARE(integer.castToInt(), 0);
    }

    void keepsItsTypeWhateverIsAssigned()
    {
        common_Property text = newProperty(MetaData::String);
        text.assignFromBool(true);
        QCOMPARE(text.castToQString(), QStringLiteral("true"));
        text.assignFromInt(7);
        QCOMPARE(text.castToQString(), QStringLiteral("7"));
        text.assignFromDouble(0.1);
        QCOMPARE(text.castToQString(), QStringLiteral("0.1"));
        common_Property boolean = newProperty(MetaData::Boolean);
        boolean.assignFromInt(7);
        QCOMPARE(boolean.castToInt(), 1);
        common_Property integer = newProperty(MetaData::Integer);
        integer.assignFromBool(true);
        QCOMPARE(integer.castToQString(), QStringLiteral("1"));
        integer.assignFromDouble(-3.0);
        QCOMPARE(integer.castToInt(), -3);
    }

    void copiesAreIndependent()
    {
        common_Property first = newProperty(MetaData::Integer);
        first.assignFromInt(1);
        common_Property second = first;
        second.assignFromInt(2);
        QCOMPARE(first.castToInt(), 1);
        QCOMPARE(second.castToInt(), 2);
        QCOMPARE(second.name(), first.name());
    }
};

QTEST_APPLESS_MAIN(tst_common_Property)

#include "tst_common_Property.moc"
