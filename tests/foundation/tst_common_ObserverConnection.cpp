// SPDX-License-Identifier: MIT
#include <Listening.h>

#include <QtTest>

#include <memory>
#include <type_traits>

static_assert(std::has_virtual_destructor<Connection>::value, "deleted through the base");
static_assert(!std::is_copy_constructible<Connection>::value, "one tie, one object");
static_assert(!std::is_copy_assignable<Connection>::value, "never re-pointed");

class tst_common_ObserverConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attachesItselfWhenConstructed()
    {
        QStringList calls;
        Subject subject;
        Listener listener(QStringLiteral("a"), &calls);
        const Connection connection(&listener, &subject);
        QCOMPARE(subject.getObservers().size(), 1);
        QCOMPARE(subject.getObservers().first(), &connection);
        QCOMPARE(connection.getObserver(), static_cast<IListener*>(&listener));
        QCOMPARE(connection.getObservable(),
                 static_cast<common_ObservableVia<IListener>*>(&subject));
        QCOMPARE(connection.getRefCount(), 0);
    }

    void detachesItselfWhenDestroyed()
    {
        QStringList calls;
        Subject subject;
        Listener listener(QStringLiteral("a"), &calls);
        {
            const Connection connection(&listener, &subject);
        }
        QVERIFY(subject.getObservers().isEmpty());
    }

    void detachedByTheEndOfItsObservable()
    {
        QStringList calls;
        Listener listener(QStringLiteral("a"), &calls);
        auto subject = std::make_unique<Subject>();
        const Connection connection(&listener, subject.get());
        subject.reset();
        QVERIFY(!connection.getObservable());
        QCOMPARE(connection.getObserver(), static_cast<IListener*>(&listener));
    }

    void goesWithItsLastReference()
    {
        QStringList calls;
        Subject subject;
        Listener listener(QStringLiteral("a"), &calls);
        common_ActivePtr<Connection> first(new Connection(&listener, &subject));
        common_ActivePtr<Connection> second = first;
        QCOMPARE(first->getRefCount(), 2);
        first.reset();
        QCOMPARE(subject.getObservers().size(), 1);
        second.reset();
        QVERIFY(subject.getObservers().isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_common_ObserverConnection)
#include "tst_common_ObserverConnection.moc"
