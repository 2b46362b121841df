// What every class that notifies observers guarantees, whichever of its notifications is used.

#include <Listening.h>

#include <common_GenericProcessMessage.h>
#include <common_ProcessRunner.h>
#include <common_Property.h>
#include <common_PropertyContainer.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <QtTest>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

/// An observer that notes its name when it is called, and does what a test wants.
class Watcher
{
public:
    Watcher() = default;
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    virtual ~Watcher() = default;

    virtual void start() = 0;
    virtual void stop() = 0;

    std::function<void()> then = [] {};
};

template <typename T>
class WatcherOf : public Watcher, public common_ObserverOf<T>
{
public:
    WatcherOf(QString name, QStringList* calls, common_ObservableVia<T>* observable)
        : m_name(std::move(name)), m_calls(calls), m_observable(observable)
    {}

    void start() override { this->startObserving(m_observable); }
    void stop() override { this->stopObserving(); }

protected:
    void react()
    {
        m_calls->append(m_name);
        const auto callback = then; // may replace itself, or destroy this watcher
        callback();
    }

private:
    QString m_name;
    QStringList* m_calls;
    common_ObservableVia<T>* m_observable;
};

class ChangeWatcher : public WatcherOf<IListener>
{
public:
    using WatcherOf::WatcherOf;

    void onChanged() override { react(); }
};

class PropertyWatcher : public WatcherOf<common_PropertyContainerObserver>
{
public:
    using WatcherOf::WatcherOf;

    void propertyValueChanged(const common_Property& /*property*/) override { react(); }
};

/// Reacts to the last of the calls that belong to one notification.
class RunWatcher : public WatcherOf<common_IProcessRunnerObserver>
{
public:
    using WatcherOf::WatcherOf;

    void onProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/) override
    {
        react();
    }
    void onFailedProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/,
                                const QString& /*errorString*/) override
    {
        react();
    }
    void onProcessMessageReceived(const common_IProcessMessage& /*message*/) override { react(); }
    void onProcessDone() override { react(); }
    void onExitCodeChanged(int /*exitCode*/) override {}
};

class Container : public common_PropertyContainer
{
public:
    using common_PropertyContainer::getObservers;

    void reference() override { ++m_refCount; }
    void dereference() override { --m_refCount; }
    int getRefCount() const override { return m_refCount; }

private:
    int m_refCount = 0;
};

class Runner : public common_ProcessRunner<common_GenericProcessMessage>
{
public:
    using common_ProcessRunner::getObservers;
    using common_ProcessRunner::notifyFailedProcessStarted;
    using common_ProcessRunner::notifyProcessDone;
    using common_ProcessRunner::notifyProcessMessageReceived;
    using common_ProcessRunner::notifyProcessStarted;
};

/// Subject with an operation that passes something on.
class TalkingSubject : public Subject
{
public:
    void changeTo(int value)
    {
        notifyObservers([value](IListener& observer) {
            if (value == 7) {
                observer.onChanged();
            }
        });
    }
};

/// An observable and one of its notifications.
class Notifier
{
public:
    Notifier() = default;
    Notifier(const Notifier&) = delete;
    Notifier& operator=(const Notifier&) = delete;
    virtual ~Notifier() = default;

    /// A watcher that observes already.
    std::unique_ptr<Watcher> watcher(const QString& name, QStringList* calls)
    {
        std::unique_ptr<Watcher> made = idleWatcher(name, calls);
        made->start();
        return made;
    }

    virtual std::unique_ptr<Watcher> idleWatcher(const QString& name, QStringList* calls) = 0;
    virtual void notify() = 0;
    virtual void destroyObservable() = 0;
    virtual int connections() const = 0;
    virtual int referencesOfFirst() const = 0;

    /// Attaches a connection that no observer owns.
    virtual void attachUnowned(Watcher& watcher) = 0;
    virtual void deleteUnowned() = 0;

    /// Attaches a connection without an observer, notifies and detaches it.
    virtual void notifyWithoutObserver() = 0;
};

template <typename Observable, typename Interface, typename MadeWatcher>
class NotifierOf : public Notifier
{
public:
    using Operation = std::function<void(Observable&)>;

    explicit NotifierOf(Operation operation) : m_operation(std::move(operation)) {}

    std::unique_ptr<Watcher> idleWatcher(const QString& name, QStringList* calls) override
    {
        return std::make_unique<MadeWatcher>(name, calls, m_observable.get());
    }
    void notify() override { m_operation(*m_observable); }
    void destroyObservable() override { m_observable.reset(); }
    int connections() const override { return m_observable->getObservers().size(); }
    int referencesOfFirst() const override
    {
        return m_observable->getObservers().first()->getRefCount();
    }

    void attachUnowned(Watcher& watcher) override
    {
        new ConnectionTo(static_cast<MadeWatcher*>(&watcher), m_observable.get());
    }

    void deleteUnowned() override { delete m_observable->getObservers().first(); }

    void notifyWithoutObserver() override
    {
        const common_ActivePtr<ConnectionTo> empty(new ConnectionTo(nullptr, m_observable.get()));
        notify();
        m_observable->detachObserverVia(empty.get());
    }

private:
    using ConnectionTo = common_ObserverConnection<Interface>;

    std::unique_ptr<Observable> m_observable = std::make_unique<Observable>();
    Operation m_operation;
};

using ChangeNotifier = NotifierOf<TalkingSubject, IListener, ChangeWatcher>;
using PropertyNotifier = NotifierOf<Container, common_PropertyContainerObserver, PropertyWatcher>;
using RunNotifier = NotifierOf<Runner, common_IProcessRunnerObserver, RunWatcher>;

struct NotifierRow
{
    const char* name;
    bool isStrict; // asserts that there is an observer, and leaves unowned connections alone
    std::function<std::unique_ptr<Notifier>()> make;
};

const QString propertyName = QStringLiteral("Test.Notified");

common_Property changedProperty()
{
    return common_Property(common_PropertyFactory::getMetaData(propertyName));
}

template <typename MadeNotifier, typename Operation>
std::function<std::unique_ptr<Notifier>()> making(Operation operation)
{
    return [operation] { return std::make_unique<MadeNotifier>(operation); };
}

// clang-format off
const std::vector<NotifierRow>& notifiers()
{
    static const std::vector<NotifierRow> table = {
        {"operation without arguments", false, making<ChangeNotifier>([](TalkingSubject& subject) { subject.change(); })},
        {"operation with arguments",    false, making<ChangeNotifier>([](TalkingSubject& subject) { subject.changeTo(7); })},
        {"property container",          false, making<PropertyNotifier>([](Container& container) { container.propertyValueChanged(changedProperty()); })},
        {"property reference",          false, making<PropertyNotifier>([](Container& container) { container[propertyName].notify(); })},
        {"runner, started",             true,  making<RunNotifier>([](Runner& runner) { runner.notifyProcessStarted(); })},
        {"runner, failed to start",     true,  making<RunNotifier>([](Runner& runner) { runner.notifyFailedProcessStarted(); })},
        {"runner, message",             true,  making<RunNotifier>([](Runner& runner) { runner.notifyProcessMessageReceived(common_GenericProcessMessage()); })},
        {"runner, done",                true,  making<RunNotifier>([](Runner& runner) { runner.notifyProcessDone(); })},
    };
    return table;
}
// clang-format on

} // namespace

class tst_notification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        common_PropertyFactory::addMetaData(
            propertyName,
            common_PropertyMetaData(propertyName, QString(), common_PropertyMetaData::Integer,
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
        first->then = [&first] { first->stop(); };
        notifier->notify();
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b, b}));
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
        first->then = [&first] { first.reset(); };
        notifier->notify();
        QCOMPARE(calls, QStringList({a, b}));
        QCOMPARE(notifier->connections(), 1);
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
