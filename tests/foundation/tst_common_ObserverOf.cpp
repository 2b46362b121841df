// SPDX-License-Identifier: MIT
#include <Listening.h>

#include <QtTest>

#include <memory>

namespace {

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");

} // namespace

class tst_common_ObserverOf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesNotObserveByDefaultNorANullPointer()
    {
        QStringList calls;
        Subject subject;
        Listener listener(a, &calls, nullptr);
        subject.change();
        QVERIFY(calls.isEmpty());
        listener.stopObserving();
    }

    void observesFromItsConstruction()
    {
        QStringList calls;
        Subject subject;
        const Listener listener(a, &calls, &subject);
        subject.change();
        QCOMPARE(calls, QStringList(a));
        QCOMPARE(subject.getObservers().first()->getRefCount(), 1);
    }

    void destroyedObserverIsNotCalledAgain()
    {
        QStringList calls;
        Subject subject;
        {
            const Listener listener(a, &calls, &subject);
        }
        QVERIFY(subject.getObservers().isEmpty());
        subject.change();
        QVERIFY(calls.isEmpty());
    }

    void stopObservingDetaches()
    {
        QStringList calls;
        Subject subject;
        Listener listener(a, &calls, &subject);
        listener.stopObserving();
        listener.stopObserving();
        QVERIFY(subject.getObservers().isEmpty());
        listener.startObserving(&subject);
        subject.change();
        QCOMPARE(calls, QStringList(a));
    }

    void secondObservableTakesThePlaceOfTheFirst()
    {
        QStringList calls;
        Subject first;
        Subject second;
        Listener listener(a, &calls, &first);
        listener.startObserving(&second);
        QVERIFY(first.getObservers().isEmpty());
        QCOMPARE(second.getObservers().size(), 1);
        first.change();
        QVERIFY(calls.isEmpty());
        second.change();
        QCOMPARE(calls, QStringList(a));
    }

    void observingTheSameAgainMovesItToTheEnd()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        first.startObserving(&subject);
        subject.change();
        QCOMPARE(calls, QStringList({b, a}));
    }

    void observableMayDieFirst()
    {
        QStringList calls;
        auto subject = std::make_unique<Subject>();
        Listener stopping(a, &calls, subject.get());
        auto dying = std::make_unique<Listener>(b, &calls, subject.get());
        subject.reset();
        stopping.stopObserving();
        dying.reset();
        Subject other;
        stopping.startObserving(&other);
        other.change();
        QCOMPARE(calls, QStringList(a));
    }

    void copySharesTheConnectionWhichCallsTheSource()
    {
        QStringList calls;
        Subject subject;
        Listener source(a, &calls, &subject);
        const Listener copy(source);
        QCOMPARE(subject.getObservers().size(), 1);
        QCOMPARE(subject.getObservers().first()->getRefCount(), 2);
        QCOMPARE(subject.getObservers().first()->getObserver(), static_cast<IListener*>(&source));
        source.stopObserving();
        QCOMPARE(subject.getObservers().size(), 1);
        subject.change();
        QCOMPARE(calls, QStringList(a));
    }

    void copyKeepsTheConnectionOfADestroyedSource()
    {
        QStringList calls;
        Subject subject;
        auto source = std::make_unique<Listener>(a, &calls, &subject);
        const IListener* const sourceAddress = source.get();
        auto copy = std::make_unique<Listener>(*source);
        source.reset();
        QCOMPARE(subject.getObservers().size(), 1);
        QCOMPARE(static_cast<const IListener*>(subject.getObservers().first()->getObserver()),
                 sourceAddress);
        copy.reset();
        QVERIFY(subject.getObservers().isEmpty());
    }

    void assignmentLetsGoOfTheOwnConnectionAndSharesTheOthers()
    {
        QStringList calls;
        Subject first;
        Subject second;
        Listener source(a, &calls, &first);
        Listener target(b, &calls, &second);
        target = source;
        QVERIFY(second.getObservers().isEmpty());
        QCOMPARE(first.getObservers().first()->getRefCount(), 2);
        first.change();
        QCOMPARE(calls, QStringList(a));
    }

    void copyThatStartsToObserveIsCalledItself()
    {
        QStringList calls;
        Subject first;
        Subject second;
        Listener source(a, &calls, &first);
        Listener copy(source);
        copy.startObserving(&second);
        QCOMPARE(first.getObservers().size(), 1);
        QCOMPARE(first.getObservers().first()->getRefCount(), 1);
        QCOMPARE(second.getObservers().first()->getObserver(), static_cast<IListener*>(&copy));
    }
};

QTEST_GUILESS_MAIN(tst_common_ObserverOf)
#include "tst_common_ObserverOf.moc"
