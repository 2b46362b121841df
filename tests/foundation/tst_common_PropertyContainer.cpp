// SPDX-License-Identifier: MIT
#include <ChildRun.h>

#include <common_ActivePtr.h>
#include <common_Property.h>
#include <common_PropertyContainer.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>
#include <common_PropertyReference.h>

#include <QtTest>

#include <functional>

namespace {

using MetaData = common_PropertyMetaData;
using Observer = common_PropertyContainerObserver;

const QString number = QStringLiteral("Test.Number");
const QString text = QStringLiteral("Test.Text");
const QString flag = QStringLiteral("Test.Flag");

void registerProperties()
{
    const auto add = [](const QString& name, MetaData::Type type) {
        common_PropertyFactory::addMetaData(name,
                                            MetaData(name, QString(), type, MetaData::Single, 3));
    };
    add(number, MetaData::Integer);
    add(text, MetaData::String);
    add(flag, MetaData::Boolean);
}

class Container : public common_PropertyContainer
{
public:
    void reference() override { ++m_refCount; }
    void dereference() override { --m_refCount; }
    int getRefCount() const override { return m_refCount; }

private:
    int m_refCount = 0;
};

/// Notes "name:property=value" when it is told of a value, and does what a test wants.
class Watcher : public common_ObserverOf<Observer>
{
public:
    Watcher(const QString& name, QStringList* calls, common_PropertyContainer* container)
        : common_ObserverOf(container), m_name(name), m_calls(calls)
    {}

    using common_ObserverOf::startObserving;
    using common_ObserverOf::stopObserving;

    void propertyValueChanged(const common_Property& property) override
    {
        m_calls->append(m_name + QLatin1Char(':') + property.name() + QLatin1Char('=') +
                        property.castToQString());
        const auto callback = then;
        callback();
    }

    std::function<void()> then = [] {};

private:
    QString m_name;
    QStringList* m_calls;
};

void set(Container& container, int value)
{
    common_PropertyReference reference = container[number];
    reference.assignFromInt(value);
    reference.notify();
}

} // namespace

class tst_common_PropertyContainer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst()
    {
        const Container container;
        QVERIFY(!container.hasProperty(number));
        QVERIFY(container.getProperties().isEmpty());
    }

    void lookingDoesNotMakeAProperty()
    {
        const Container container;
        const common_Property looked = container[number];
        QCOMPARE(looked.name(), number);
        QCOMPARE(looked.castToInt(), 0);
        QVERIFY(!container.hasProperty(number));
    }

    void aReferenceMakesTheProperty()
    {
        Container container;
        const common_PropertyReference reference = container[number];
        QVERIFY(container.hasProperty(number));
        QCOMPARE(reference.castToInt(), 0);
        QVERIFY(!container.hasProperty(text));
    }

    void listsPropertiesInTheOrderOfTheirRegistration()
    {
        Container container;
        container[flag].assignFromBool(true);
        container[number].assignFromInt(1);
        QCOMPARE(container.getProperties(), QStringList({number, flag}));
        container[text].assignFromQString(QString());
        QCOMPARE(container.getProperties(), QStringList({number, text, flag}));
    }

    void referencesShareTheValue()
    {
        Container container;
        common_PropertyReference first = container[text];
        common_PropertyReference second = container[text];
        first.assignFromQString(QStringLiteral("12"));
        container[number].assignFromInt(3);
        container[flag].assignFromBool(true);
        QCOMPARE(second.castToQString(), QStringLiteral("12"));
        QCOMPARE(second.castToInt(), 12);
        QCOMPARE(second.castToDouble(), 12.0);
        QCOMPARE(second.castToBool(), true);
        second.assignFromDouble(0.5);
        QCOMPARE(first.castToQString(), QStringLiteral("0.5"));
        QCOMPARE(qAsConst(container)[text].castToQString(), QStringLiteral("0.5"));
    }

    void aValueTakenOutDoesNotChangeAnyMore()
    {
        Container container;
        container[number].assignFromInt(1);
        const common_Property before = qAsConst(container)[number];
        container[number].assignFromInt(2);
        QCOMPARE(before.castToInt(), 1);
    }

    void assigningTellsNobody()
    {
        Container container;
        QStringList calls;
        const Watcher watcher(QStringLiteral("a"), &calls, &container);
        container[number].assignFromInt(1);
        QVERIFY(calls.isEmpty());
    }

    void notifyingTellsTheObserversInTheirOrder()
    {
        Container container;
        QStringList calls;
        const Watcher a(QStringLiteral("a"), &calls, &container);
        const Watcher b(QStringLiteral("b"), &calls, &container);
        set(container, 7);
        container[flag].notify();
        QCOMPARE(calls,
                 QStringList({QStringLiteral("a:Test.Number=7"), QStringLiteral("b:Test.Number=7"),
                              QStringLiteral("a:Test.Flag=false"),
                              QStringLiteral("b:Test.Flag=false")}));
    }

    void anUnchangedValueIsToldAsWell()
    {
        Container container;
        QStringList calls;
        const Watcher watcher(QStringLiteral("a"), &calls, &container);
        set(container, 7);
        set(container, 7);
        QCOMPARE(calls.size(), 2);
    }

    void theValueIsSetWhenTheObserversAreTold()
    {
        Container container;
        QStringList calls;
        int seen = 0;
        Watcher watcher(QStringLiteral("a"), &calls, &container);
        watcher.then = [&] { seen = container[number].castToInt(); };
        set(container, 7);
        QCOMPARE(seen, 7);
    }

    void tellsByThePublicOperationAsWell()
    {
        Container container;
        QStringList calls;
        const Watcher watcher(QStringLiteral("a"), &calls, &container);
        common_Property other(common_PropertyFactory::getMetaData(text));
        other.assignFromQString(QStringLiteral("x"));
        container.propertyValueChanged(other);
        QCOMPARE(calls, QStringList(QStringLiteral("a:Test.Text=x")));
        QVERIFY(!container.hasProperty(text));
    }

    // Its own value is told to each, though another one is assigned in between.
    void anObserverMayAssignAgain()
    {
        Container container;
        QStringList calls;
        Watcher a(QStringLiteral("a"), &calls, &container);
        const Watcher b(QStringLiteral("b"), &calls, &container);
        a.then = [&] {
            a.then = [] {};
            set(container, 8);
        };
        set(container, 7);
        QCOMPARE(
            calls,
            QStringList({QStringLiteral("a:Test.Number=7"), QStringLiteral("a:Test.Number=8"),
                         QStringLiteral("b:Test.Number=8"), QStringLiteral("b:Test.Number=7")}));
        QCOMPARE(container[number].castToInt(), 8);
    }

    void anObserverMayStopInACall()
    {
        Container container;
        QStringList calls;
        Watcher a(QStringLiteral("a"), &calls, &container);
        const Watcher b(QStringLiteral("b"), &calls, &container);
        a.then = [&a] { a.stopObserving(); };
        set(container, 1);
        set(container, 2);
        QCOMPARE(calls,
                 QStringList({QStringLiteral("a:Test.Number=1"), QStringLiteral("b:Test.Number=1"),
                              QStringLiteral("b:Test.Number=2")}));
    }

    void anObserverMayStopAnotherInACall()
    {
        Container container;
        QStringList calls;
        Watcher a(QStringLiteral("a"), &calls, &container);
        Watcher b(QStringLiteral("b"), &calls, &container);
        Watcher c(QStringLiteral("c"), &calls, &container);
        b.then = [&a, &c] {
            a.stopObserving();
            c.stopObserving();
        };
        set(container, 1);
        calls.clear();
        set(container, 2);
        QCOMPARE(calls, QStringList(QStringLiteral("b:Test.Number=2")));
    }

    void anObserverThatStartsInACallIsToldTheNextTime()
    {
        Container container;
        QStringList calls;
        Watcher a(QStringLiteral("a"), &calls, &container);
        Watcher b(QStringLiteral("b"), &calls, nullptr);
        a.then = [&] {
            a.then = [] {};
            b.startObserving(&container);
        };
        set(container, 1);
        QCOMPARE(calls, QStringList(QStringLiteral("a:Test.Number=1")));
        set(container, 2);
        QCOMPARE(calls.size(), 3);
    }

    void anObserverMayReleaseTheContainer()
    {
        QStringList calls;
        common_ActivePtr<Container> container(new Container);
        Watcher a(QStringLiteral("a"), &calls, container.get());
        const Watcher b(QStringLiteral("b"), &calls, container.get());
        a.then = [&container] { container.reset(); };
        set(*container, 1);
        QVERIFY(container.isNull());
        QVERIFY(calls.contains(QStringLiteral("a:Test.Number=1")));
    }

    void copiesHaveTheValuesAndNoObservers()
    {
        Container container;
        QStringList calls;
        const Watcher watcher(QStringLiteral("a"), &calls, &container);
        container[number].assignFromInt(1);
        Container copy(container);
        QCOMPARE(copy[number].castToInt(), 1);
        QCOMPARE(copy.getProperties(), QStringList(number));
        set(copy, 2);
        QVERIFY(calls.isEmpty());
        QCOMPARE(container[number].castToInt(), 1);
        set(container, 3);
        QCOMPARE(calls, QStringList(QStringLiteral("a:Test.Number=3")));
        QCOMPARE(copy[number].castToInt(), 2);
    }

    void assignmentTakesTheValuesAndKeepsTheObservers()
    {
        Container source;
        Container target;
        QStringList calls;
        const Watcher ofSource(QStringLiteral("source"), &calls, &source);
        const Watcher ofTarget(QStringLiteral("target"), &calls, &target);
        source[number].assignFromInt(1);
        target[text].assignFromQString(QStringLiteral("x"));
        target = source;
        QCOMPARE(target.getProperties(), QStringList(number));
        QVERIFY(calls.isEmpty());
        set(target, 2);
        QCOMPARE(calls, QStringList(QStringLiteral("target:Test.Number=2")));
        QCOMPARE(source[number].castToInt(), 1);
    }

    void anUnregisteredNameEndsTheProcess_data()
    {
        QTest::addColumn<QString>("task");
        QTest::newRow("looked at") << QStringLiteral("look");
        QTest::newRow("referred to") << QStringLiteral("refer");
    }

    void anUnregisteredNameEndsTheProcess()
    {
        QFETCH(QString, task);
        const ChildRun child(task);
        QVERIFY(child.hasCrashed());
        QVERIFY2(child.error().endsWith(QStringLiteral(": Assertion failed: hasMetaData(name)\n")),
                 qPrintable(child.error()));
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    registerProperties();
    const QString task = ChildRun::taskOfThisRun();
    if (!task.isEmpty()) {
        Container container;
        if (task == QLatin1String("look")) {
            qAsConst(container)[QStringLiteral("Test.Unknown")].castToInt();
        } else {
            container[QStringLiteral("Test.Unknown")].castToInt();
        }
        return 0;
    }
    tst_common_PropertyContainer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_PropertyContainer.moc"
