// SPDX-License-Identifier: MIT
#include <Listening.h>

#include <QtTest>

#include <memory>

namespace {

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

} // namespace

class tst_common_ObservableVia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsInTheOrderOfAttachment()
    {
        QStringList calls;
        Subject subject;
        const Listener first(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        const Listener third(c, &calls, &subject);
        subject.change();
        QCOMPARE(calls, QStringList({a, b, c}));
    }

    void attachingTheSameConnectionTwiceLeavesOneEntry()
    {
        QStringList calls;
        Subject subject;
        Listener listener(a, &calls);
        const common_ActivePtr<Connection> connection(new Connection(&listener, &subject));
        subject.attachObserverVia(connection.get());
        QCOMPARE(subject.getObservers().size(), 1);
        subject.change();
        QCOMPARE(calls, QStringList(a));
    }

    void twoConnectionsOfOneObserverAreTwoEntries()
    {
        QStringList calls;
        Subject subject;
        Listener listener(a, &calls);
        const common_ActivePtr<Connection> first(new Connection(&listener, &subject));
        const common_ActivePtr<Connection> second(new Connection(&listener, &subject));
        subject.change();
        QCOMPARE(calls, QStringList({a, a}));
    }

    void detachingAnUnknownConnectionChangesNothing()
    {
        QStringList calls;
        Subject subject;
        Subject otherSubject;
        Listener listener(a, &calls);
        const Connection known(&listener, &subject);
        Connection unknown(&listener, &otherSubject);
        subject.detachObserverVia(&unknown);
        subject.detachObserverVia(nullptr);
        QCOMPARE(subject.getObservers().size(), 1);
        QCOMPARE(otherSubject.getObservers().size(), 1);
    }

    void detachedConnectionIsNotCalledAndStillNamesTheObservable()
    {
        QStringList calls;
        Subject subject;
        Listener listener(a, &calls);
        Connection connection(&listener, &subject);
        subject.detachObserverVia(&connection);
        subject.change();
        QVERIFY(calls.isEmpty());
        QVERIFY(connection.getObservable());
    }

    void listIsAvailableForConstantObjectsToo()
    {
        const Subject subject;
        QVERIFY(subject.getObservers().isEmpty());
    }

    void observerThatStopsItselfIsSafe()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        first.then = [&first] { first.stopObserving(); };
        subject.change();
        subject.change();
        QCOMPARE(calls, QStringList({a, b, b}));
    }

    void observerStoppedByAnEarlierOneIsStillCalledInThisRound()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        Listener second(b, &calls, &subject);
        first.then = [&second] { second.stopObserving(); };
        subject.change();
        QCOMPARE(calls, QStringList({a, b}));
        QCOMPARE(subject.getObservers().size(), 1);
        subject.change();
        QCOMPARE(calls, QStringList({a, b, a}));
    }

    void observerAttachedInACallbackIsFirstCalledNextTime()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        Listener second(b, &calls);
        first.then = [&] {
            first.then = [] {};
            second.startObserving(&subject);
        };
        subject.change();
        QCOMPARE(calls, QStringList(a));
        subject.change();
        QCOMPARE(calls, QStringList({a, a, b}));
    }

    void observerMayDestroyItselfInACallback()
    {
        QStringList calls;
        Subject subject;
        auto first = std::make_unique<Listener>(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        first->then = [&first] { first.reset(); };
        subject.change();
        QCOMPARE(calls, QStringList({a, b}));
        QCOMPARE(subject.getObservers().size(), 1);
    }

    void observableMayBeDestroyedInACallback()
    {
        QStringList calls;
        auto subject = std::make_unique<Subject>();
        Listener first(a, &calls, subject.get());
        const Listener second(b, &calls, subject.get());
        first.then = [&subject] { subject.reset(); };
        subject->change();
        QCOMPARE(calls, QStringList({a, b}));
    }

    void notificationWithinANotificationReachesEverybody()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        first.then = [&] {
            first.then = [] {};
            subject.change();
        };
        subject.change();
        QCOMPARE(calls, QStringList({a, a, b, b}));
    }

    void exceptionOfAnObserverLeavesTheListAsItWas()
    {
        QStringList calls;
        Subject subject;
        Listener first(a, &calls, &subject);
        const Listener second(b, &calls, &subject);
        first.then = [] { throw 1; };
        QVERIFY_EXCEPTION_THROWN(subject.change(), int);
        QCOMPARE(subject.getObservers().size(), 2);
        QCOMPARE(subject.getObservers().first()->getRefCount(), 1);
    }

    void connectionWithoutObserverIsSkipped()
    {
        QStringList calls;
        Subject subject;
        const common_ActivePtr<Connection> empty(new Connection(nullptr, &subject));
        const Listener listener(a, &calls, &subject);
        subject.change();
        QCOMPARE(calls, QStringList(a));
        subject.detachObserverVia(empty.get());
    }

    void observersOfTheSourceHearFromACopyToo()
    {
        QStringList calls;
        Subject source;
        const Listener listener(a, &calls, &source);
        {
            Subject copy(source);
            QCOMPARE(copy.getObservers(), source.getObservers());
            QCOMPARE(copy.getObservers().first()->getObservable(),
                     static_cast<common_ObservableVia<IListener>*>(&source));
            copy.change();
            source.change();
            QCOMPARE(calls, QStringList({a, a}));
            copy.getObservers().clear();
        }
        QCOMPARE(source.getObservers().size(), 1);
    }

    void assignmentReplacesTheListByTheOthers()
    {
        QStringList calls;
        Subject source;
        Subject target;
        const Listener ofSource(a, &calls, &source);
        const Listener ofTarget(b, &calls, &target);
        const auto connectionsOfTarget = target.getObservers();
        target = source;
        target.change();
        QCOMPARE(calls, QStringList(a));
        QCOMPARE(target.getObservers().first()->getObservable(),
                 static_cast<common_ObservableVia<IListener>*>(&source));
        target.getObservers() = connectionsOfTarget;
    }

    void destructionLeavesConnectionsWithoutObservable()
    {
        QStringList calls;
        Listener first(a, &calls);
        Listener second(b, &calls);
        auto subject = std::make_unique<Subject>();
        const common_ActivePtr<Connection> one(new Connection(&first, subject.get()));
        const common_ActivePtr<Connection> two(new Connection(&second, subject.get()));
        subject.reset();
        QVERIFY(!one->getObservable());
        QVERIFY(!two->getObservable());
    }
};

QTEST_GUILESS_MAIN(tst_common_ObservableVia)
#include "tst_common_ObservableVia.moc"
