// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_MultiObserverOf.h>
#include <common_ObserverConnection.h>

#include <QVector>

#include <cstddef>
#include <vector>

/// Base of a class that can be observed through the observer interface T.
///
/// Keeps its observers' connections in the order of attachment, without owning them. The derived
/// class notifies with notifyObserversOn(), or with notifyObservers() when an operation has
/// arguments. All calls happen on the one thread that owns both sides.
///
/// A copy lists the source's connections, and these still name the source: observers of the source
/// are notified by both objects, and the copy is not informed when a connection ends. So a copy
/// must be destroyed before any observer of its source.
template <typename T>
class common_ObservableVia
{
public:
    common_ObservableVia() = default;
    common_ObservableVia(const common_ObservableVia&) = default;
    common_ObservableVia& operator=(const common_ObservableVia&) = default;

    /// Detaches every connection; a multi-observer also drops its connection to this object.
    virtual ~common_ObservableVia()
    {
        const Connections connections = m_observers;
        for (Connection* connection : connections) {
            if (connection->getObservable()) {
                detachObserverVia(connection);
                connection->forgetObservable();
            }
            auto* multiObserver =
                dynamic_cast<common_MultiObserverOf<T>*>(connection->getObserver());
            if (multiObserver && multiObserver->isObserving(this)) {
                multiObserver->stopObserving(this);
            }
        }
    }

    /// Appends the connection, unless it is listed already.
    void attachObserverVia(common_ObserverConnection<T>* connection)
    {
        if (!m_observers.contains(connection)) {
            m_observers.append(connection);
        }
    }

    /// Removes the connection; one that is not listed is ignored.
    void detachObserverVia(common_ObserverConnection<T>* connection)
    {
        m_observers.removeOne(connection);
    }

protected:
    /// How a notification treats incomplete connections.
    enum class Strictness {
        Lenient, ///< one without an observer is skipped, one without an owner is destroyed
        Strict   ///< asserts that each has an observer, leaves one without an owner as it is
    };

    /// The connections in the order in which they were attached; they are owned by the observers.
    QVector<common_ObserverConnection<T>*>& getObservers() { return m_observers; }
    /// The same, for reading.
    const QVector<common_ObserverConnection<T>*>& getObservers() const { return m_observers; }

    /// Calls an operation without arguments on every observer; see notifyObservers().
    void notifyObserversOn(void (T::*operation)())
    {
        notifyObservers([operation](T& observer) { (observer.*operation)(); });
    }

    /// Calls call(observer) for every observer, in the order of attachment.
    ///
    /// Iterates over a snapshot that keeps the connections alive: an observer that stops observing
    /// during a call is still called in this round if its turn is to come, one that starts is first
    /// called in the next round. A callback may destroy this object or its own observer, but not an
    /// observer whose turn is to come. What a callback throws is passed on, and the remaining
    /// observers are not called.
    ///
    /// As this object may be destroyed meanwhile, call must use copies of what it passes on.
    template <typename Call>
    void notifyObservers(Call call, Strictness strictness = Strictness::Lenient)
    {
        const bool isStrict = strictness == Strictness::Strict;
        const Connections snapshot = m_observers;
        std::vector<common_ActivePtr<Connection>> references; // keep the connections alive
        references.reserve(static_cast<std::size_t>(snapshot.size()));
        for (Connection* connection : snapshot) {
            if (!isStrict || connection->getRefCount() > 0) {
                references.emplace_back(connection);
            }
        }
        for (const Connection* connection : snapshot) {
            if (isStrict || connection->hasObserver()) {
                call(*connection->getObserver());
            }
        }
    }

private:
    using Connection = common_ObserverConnection<T>;
    using Connections = QVector<Connection*>;

    Connections m_observers;
};
