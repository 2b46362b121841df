// SPDX-License-Identifier: MIT
#include <Listening.h>

#include <common_MultiObserverOf.h>

#include <QtTest>

#include <memory>

namespace {

class MultiListener : public common_MultiObserverOf<IListener>
{
public:
    void onChanged() override { ++calls; }

    int calls = 0;
};

} // namespace

class tst_common_MultiObserverOf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void observesSeveralAtOnce()
    {
        Subject first;
        Subject second;
        MultiListener listener;
        listener.startObserving(&first);
        listener.startObserving(&second);
        first.change();
        second.change();
        QCOMPARE(listener.calls, 2);
    }

    void observesEachOnce()
    {
        Subject subject;
        MultiListener listener;
        listener.startObserving(&subject);
        listener.startObserving(&subject);
        QCOMPARE(subject.getObservers().size(), 1);
        subject.change();
        QCOMPARE(listener.calls, 1);
    }

    void stopsOneAndKeepsTheOther()
    {
        Subject first;
        Subject second;
        MultiListener listener;
        listener.startObserving(&first);
        listener.startObserving(&second);
        listener.stopObserving(&first);
        QVERIFY(!listener.isObserving(&first));
        QVERIFY(listener.isObserving(&second));
        QVERIFY(first.getObservers().isEmpty());
        first.change();
        QCOMPARE(listener.calls, 0);
    }

    void destroyedListenerIsDetachedEverywhere()
    {
        Subject first;
        Subject second;
        {
            MultiListener listener;
            listener.startObserving(&first);
            listener.startObserving(&second);
        }
        QVERIFY(first.getObservers().isEmpty());
        QVERIFY(second.getObservers().isEmpty());
    }

    void endOfAnObservableRemovesItsEntryOnly()
    {
        auto first = std::make_unique<Subject>();
        Subject second;
        MultiListener listener;
        listener.startObserving(first.get());
        listener.startObserving(&second);
        const auto* const address = first.get();
        first.reset();
        QVERIFY(!listener.isObserving(const_cast<Subject*>(address)));
        QVERIFY(listener.isObserving(&second));
        second.change();
        QCOMPARE(listener.calls, 1);
    }

    void endOfAnObservableUnsharesTheMapOfACopy()
    {
        auto subject = std::make_unique<Subject>();
        MultiListener source;
        source.startObserving(subject.get());
        const MultiListener copy(source);
        auto* const address = subject.get();
        subject.reset();
        QVERIFY(!source.isObserving(address));
        QVERIFY(copy.isObserving(address)); // holds the detached connection, as every copy does
    }

    void observableTellsAllKindsOfObserversOfItsEnd()
    {
        QStringList calls;
        auto subject = std::make_unique<Subject>();
        Listener single(QStringLiteral("a"), &calls, subject.get());
        MultiListener multi;
        multi.startObserving(subject.get());
        auto* const address = subject.get();
        subject->change();
        QCOMPARE(calls.size(), 1);
        QCOMPARE(multi.calls, 1);
        subject.reset();
        QVERIFY(!multi.isObserving(address));
        single.stopObserving();
    }
};

QTEST_GUILESS_MAIN(tst_common_MultiObserverOf)
#include "tst_common_MultiObserverOf.moc"
