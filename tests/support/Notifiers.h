// SPDX-License-Identifier: MIT
#pragma once

#include <Listening.h>

#include <common_GenericProcessMessage.h>
#include <common_ProcessRunner.h>
#include <common_Property.h>
#include <common_PropertyContainer.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

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

class OpenContainer : public common_PropertyContainer
{
public:
    using common_PropertyContainer::getObservers;

    void reference() override { ++m_refCount; }
    void dereference() override { --m_refCount; }
    int getRefCount() const override { return m_refCount; }

private:
    int m_refCount = 0;
};

class OpenRunner : public common_ProcessRunner<common_GenericProcessMessage>
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

    /// Attaches a connection that counts its destruction. The result releases its only reference.
    virtual std::function<void()> attachCounted(Watcher& watcher, int* destroyed) = 0;

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

    std::function<void()> attachCounted(Watcher& watcher, int* destroyed) override
    {
        const auto owner = std::make_shared<common_ActivePtr<ConnectionTo>>(new CountedConnection(
            static_cast<MadeWatcher*>(&watcher), m_observable.get(), destroyed));
        return [owner] { owner->reset(); };
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

    class CountedConnection : public ConnectionTo
    {
    public:
        CountedConnection(Interface* observer, common_ObservableVia<Interface>* observable,
                          int* destroyed)
            : ConnectionTo(observer, observable), m_destroyed(destroyed)
        {}
        CountedConnection(const CountedConnection&) = delete;
        CountedConnection& operator=(const CountedConnection&) = delete;
        ~CountedConnection() override { ++*m_destroyed; }

    private:
        int* m_destroyed;
    };

    std::unique_ptr<Observable> m_observable = std::make_unique<Observable>();
    Operation m_operation;
};

using ChangeNotifier = NotifierOf<TalkingSubject, IListener, ChangeWatcher>;
using PropertyNotifier =
    NotifierOf<OpenContainer, common_PropertyContainerObserver, PropertyWatcher>;
using RunNotifier = NotifierOf<OpenRunner, common_IProcessRunnerObserver, RunWatcher>;

struct NotifierRow
{
    const char* name;
    bool isStrict; ///< asserts that there is an observer, and leaves unowned connections alone
    std::function<std::unique_ptr<Notifier>()> make;
};

inline const QString& notifiedProperty()
{
    static const QString name = QStringLiteral("Test.Notified");
    return name;
}

inline common_Property changedProperty()
{
    return common_Property(common_PropertyFactory::getMetaData(notifiedProperty()));
}

template <typename MadeNotifier, typename Operation>
std::function<std::unique_ptr<Notifier>()> making(Operation operation)
{
    return [operation] { return std::make_unique<MadeNotifier>(operation); };
}

// clang-format off
inline const std::vector<NotifierRow>& notifiers()
{
    static const std::vector<NotifierRow> table = {
        {"operation without arguments", false, making<ChangeNotifier>([](TalkingSubject& subject) { subject.change(); })},
        {"operation with arguments",    false, making<ChangeNotifier>([](TalkingSubject& subject) { subject.changeTo(7); })},
        {"property container",          false, making<PropertyNotifier>([](OpenContainer& container) { container.propertyValueChanged(changedProperty()); })},
        {"property reference",          false, making<PropertyNotifier>([](OpenContainer& container) { container[notifiedProperty()].notify(); })},
        {"runner, started",             true,  making<RunNotifier>([](OpenRunner& runner) { runner.notifyProcessStarted(); })},
        {"runner, failed to start",     true,  making<RunNotifier>([](OpenRunner& runner) { runner.notifyFailedProcessStarted(); })},
        {"runner, message",             true,  making<RunNotifier>([](OpenRunner& runner) { runner.notifyProcessMessageReceived(common_GenericProcessMessage()); })},
        {"runner, done",                true,  making<RunNotifier>([](OpenRunner& runner) { runner.notifyProcessDone(); })},
    };
    return table;
}
// clang-format on
