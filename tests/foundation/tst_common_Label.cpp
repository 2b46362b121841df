// SPDX-License-Identifier: MIT
#include <common_ConstantLabeledItem.h>
#include <common_Label.h>

#include <QtTest>

namespace {

class Item : public common_ConstantLabeledItem
{
public:
    void reference() override {}
    void dereference() override {}
    int getRefCount() const override { return 0; }

protected:
    common_Label doGetConstantLabel() const override { return {QStringLiteral("item")}; }
};

} // namespace

class tst_common_Label : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsItsText()
    {
        QCOMPARE(common_Label().text(), QString());
        QCOMPARE(common_Label(QStringLiteral("a <b>")).text(), QStringLiteral("a <b>"));
    }

    void comparesByText()
    {
        const common_Label a(QStringLiteral("a"));
        const common_Label sameText(QStringLiteral("a"));
        const common_Label b(QStringLiteral("b"));
        QVERIFY(a == sameText);
        QVERIFY(!(a != sameText));
        QVERIFY(a != b);
        QVERIFY(!(a == b));
    }

    void anItemIsLabelledByItsConstant()
    {
        QCOMPARE(Item().getLabel().text(), QStringLiteral("item"));
    }
};

QTEST_APPLESS_MAIN(tst_common_Label)

#include "tst_common_Label.moc"
