// SPDX-License-Identifier: MIT
#include <common_PropertyMetaData.h>

#include <QtTest>

namespace {

QVector<EnumType> threeMembers()
{
    return {{QStringLiteral("Low"), 2, QStringLiteral("LowKey")},
            {QStringLiteral("High"), 0, QStringLiteral("HighKey")},
            {QString(), -1, QStringLiteral("Unnamed")}};
}

} // namespace

class tst_common_PropertyMetaData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatItWasMadeOf_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("flags");
        QTest::newRow("boolean") << 1 << 3;
        QTest::newRow("string") << 2 << 66;
        QTest::newRow("integer") << 3 << 0;
        QTest::newRow("double") << 5 << -1;
    }

    void keepsWhatItWasMadeOf()
    {
        QFETCH(int, type);
        QFETCH(int, flags);
        const common_PropertyMetaData metaData(
            QStringLiteral("Kest.Name"), QStringLiteral("A label"),
            common_PropertyMetaData::Type(type), common_PropertyMetaData::Single, flags);
        QCOMPARE(metaData.name(), QStringLiteral("Kest.Name"));
        QCOMPARE(metaData.label(), QStringLiteral("A label"));
        QCOMPARE(int(metaData.type()), type);
        QCOMPARE(int(metaData.cardinality()), 0);
        QCOMPARE(metaData.flags(), flags);
        QVERIFY(metaData.getEnumList().isEmpty());
    }

    void namesTheTypes()
    {
        QCOMPARE(int(common_PropertyMetaData::Boolean), 1);
        QCOMPARE(int(common_PropertyMetaData::String), 2);
        QCOMPARE(int(common_PropertyMetaData::Integer), 3);
        QCOMPARE(int(common_PropertyMetaData::Double), 5);
    }

    void keepsMembersInTheirOrder()
    {
        common_PropertyMetaData metaData;
        metaData.setEnumerated(threeMembers());
        const QVector<EnumType> members = metaData.getEnumList();
        QCOMPARE(members.size(), 3);
        QCOMPARE(members.at(0).text, QStringLiteral("Low"));
        QCOMPARE(members.at(0).value, 2);
        QCOMPARE(members.at(0).key, QStringLiteral("LowKey"));
        QCOMPARE(members.at(1).value, 0);
        QCOMPARE(members.at(2).text, QString());
        QCOMPARE(members.at(2).value, -1);
    }

    void theListIsACopyUntilItIsStoredBack()
    {
        common_PropertyMetaData metaData;
        metaData.setEnumerated(threeMembers());
        QVector<EnumType> members = metaData.getEnumList();
        members.append(EnumType(QStringLiteral("More"), 4, QStringLiteral("MoreKey")));
        QCOMPARE(metaData.getEnumList().size(), 3);
        metaData.setEnumerated(members);
        QCOMPARE(metaData.getEnumList().size(), 4);
        metaData.setEnumerated({});
        QVERIFY(metaData.getEnumList().isEmpty());
    }

    void copiesAreIndependent()
    {
        common_PropertyMetaData metaData;
        common_PropertyMetaData copy = metaData;
        copy.setEnumerated(threeMembers());
        QVERIFY(metaData.getEnumList().isEmpty());
    }
};

QTEST_APPLESS_MAIN(tst_common_PropertyMetaData)

#include "tst_common_PropertyMetaData.moc"
