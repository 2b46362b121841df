#pragma once

#include <common_ActivePtr.h>
#include <common_MultiObserverOf.h>
#include <common_ObserverConnection.h>

#include <QVector>

/// Something that can be observed through the observer interface T.
///
/// Keeps its observers' connections in the order of attachment, without owning them. The class
/// that is really observed derives from this and notifies with notifyObserversOn() or with a loop
/// of its own over getObservers(). Everything happens on the one thread that owns both sides.
///
/// A copy lists the source's connections too, and they still name the source: observers of the
/// source hear from both objects, and the copy does not learn when a connection ends. So a copy
/// must be gone before an observer of its source is.
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
        const QVector<common_ObserverConnection<T>*> connections = m_observers;
        for (common_ObserverConnection<T>* connection : connections) {
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
    QVector<common_ObserverConnection<T>*>& getObservers() { return m_observers; }
    const QVector<common_ObserverConnection<T>*>& getObservers() const { return m_observers; }

    /// Calls the operation on every observer, in the order of attachment.
    ///
    /// Runs over a snapshot that keeps the connections alive: an observer that stops observing
    /// during a call is still called in this round if its turn was to come, one that starts is
    /// first called in the next. A callback may destroy this object or its own observer, but not
    /// an observer whose turn is still to come.
    void notifyObserversOn(void (T::*operation)())
    {
        QVector<common_ActivePtr<common_ObserverConnection<T>>> snapshot;
        snapshot.reserve(m_observers.size());
        for (common_ObserverConnection<T>* connection : qAsConst(m_observers)) {
            snapshot.append(common_ActivePtr<common_ObserverConnection<T>>(connection));
        }
        for (const auto& connection : qAsConst(snapshot)) {
            if (connection->hasObserver()) {
                (connection->getObserver()->*operation)();
            }
        }
    }

private:
    QVector<common_ObserverConnection<T>*> m_observers;
};
