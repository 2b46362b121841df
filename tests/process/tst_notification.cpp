// SPDX-License-Identifier: MIT
// What every class that notifies observers guarantees, whichever of its notifications is used.

#include <Notifiers.h>

#include <QtTest>

namespace {

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

} // namespace

class tst_notification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        common_PropertyFactory::addMetaData(
            notifiedProperty(),
            common_PropertyMetaData(notifiedProperty(), QString(), common_PropertyMetaData::Integer,
                                    common_PropertyMetaData::Single, 0));
    }

    void callsInTheOrderOfAttachment_data() { allNotifiers(); }
    void callsInTheOrderOfAttachment()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c}));
    }

    void observerMayStopItself_data() { allNotifiers(); }
    void observerMayStopItself()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        first->then = [&first] { first->stop(); };
        notifier->notify();
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c, b, c}));
    }

    void observerStoppedByAnEarlierOneIsStillCalledInThisRound_data() { allNotifiers(); }
    void observerStoppedByAnEarlierOneIsStillCalledInThisRound()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        first->then = [&] {
            second->stop();
            third->stop();
        };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c}));
        QCOMPARE(notifier->connections(), 1);
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c, a}));
    }

    void connectionIsKeptUntilTheRoundEnds_data() { allNotifiers(); }
    void connectionIsKeptUntilTheRoundEnds()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        int destroyed = 0;
        int destroyedInTheCall = -1;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->idleWatcher(b, &calls);
        const auto release = notifier->attachCounted(*second, &destroyed);
        first->then = [&] {
            release();
            destroyedInTheCall = destroyed;
        };
        notifier->notify();
        QCOMPARE(destroyedInTheCall, 0);
        QCOMPARE(destroyed, 1);
        QCOMPARE(calls, QStringList({a, b}));
        QCOMPARE(notifier->connections(), 1);
    }

    void observerMayStopAnEarlierOne_data() { allNotifiers(); }
    void observerMayStopAnEarlierOne()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        second->then = [&first] { first->stop(); };
        notifier->notify();
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c, b, c}));
    }

    void observerThatStartsIsFirstCalledInTheNextRound_data() { allNotifiers(); }
    void observerThatStartsIsFirstCalledInTheNextRound()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->idleWatcher(b, &calls);
        first->then = [&] {
            first->then = [] {};
            second->start();
        };
        notifier->notify();
        QCOMPARE(calls, QStringList(a));
        notifier->notify();
        QCOMPARE(calls, QStringList({a, a, b}));
    }

    void observerThatStartsAgainIsCalledOnceInThisRound_data() { allNotifiers(); }
    void observerThatStartsAgainIsCalledOnceInThisRound()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        first->then = [&first] { first->start(); };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b}));
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, b, a}));
    }

    void observerMayDestroyItself_data() { allNotifiers(); }
    void observerMayDestroyItself()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        first->then = [&first] { first.reset(); };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c}));
        QCOMPARE(notifier->connections(), 2);
    }

    void observerMayDestroyAnEarlierOne_data() { allNotifiers(); }
    void observerMayDestroyAnEarlierOne()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        const auto third = notifier->watcher(c, &calls);
        second->then = [&first] { first.reset(); };
        notifier->notify();
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, c, b, c}));
    }

    void observableMayBeDestroyed_data() { allNotifiers(); }
    void observableMayBeDestroyed()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        first->then = [&notifier] { notifier->destroyObservable(); };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b}));
        second->stop();
    }

    void notificationWithinANotificationReachesAll_data() { allNotifiers(); }
    void notificationWithinANotificationReachesAll()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        first->then = [&] {
            first->then = [] {};
            notifier->notify();
        };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, a, b, b}));
    }

    void exceptionLeavesTheConnectionsAsTheyWere_data() { allNotifiers(); }
    void exceptionLeavesTheConnectionsAsTheyWere()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto first = notifier->watcher(a, &calls);
        const auto second = notifier->watcher(b, &calls);
        first->then = [] { throw 1; };
        QVERIFY_EXCEPTION_THROWN(notifier->notify(), int);
        QCOMPARE(calls, QStringList(a));
        QCOMPARE(notifier->connections(), 2);
        QCOMPARE(notifier->referencesOfFirst(), 1);
    }

    void connectionWithoutOwner_data() { allNotifiers(); }
    void connectionWithoutOwner()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto observer = notifier->idleWatcher(a, &calls);
        notifier->attachUnowned(*observer);
        notifier->notify();
        QCOMPARE(calls, QStringList(a));
        QCOMPARE(notifier->connections(), row().isStrict ? 1 : 0);
        if (row().isStrict) {
            notifier->deleteUnowned();
        }
    }

    // Where it is asserted instead, the process would end: see tst_common_Assert.
    void connectionWithoutObserverIsSkipped_data() { allNotifiers(Rows::Lenient); }
    void connectionWithoutObserverIsSkipped()
    {
        const auto notifier = makeNotifier();
        QStringList calls;
        const auto observer = notifier->watcher(a, &calls);
        notifier->notifyWithoutObserver();
        QCOMPARE(calls, QStringList(a));
    }

private:
    enum class Rows { All, Lenient };

    static void allNotifiers(Rows rows = Rows::All)
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < notifiers().size(); ++number) {
            if (rows == Rows::All || !notifiers()[number].isStrict) {
                QTest::newRow(notifiers()[number].name) << int(number);
            }
        }
    }

    static const NotifierRow& row()
    {
        QFETCH(int, number);
        return notifiers()[std::size_t(number)];
    }

    static std::unique_ptr<Notifier> makeNotifier() { return row().make(); }
};

QTEST_GUILESS_MAIN(tst_notification)
#include "tst_notification.moc"
