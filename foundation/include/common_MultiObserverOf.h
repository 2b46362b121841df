// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_ObserverConnection.h>

#include <QMap>

template <typename T>
class common_ObservableVia;

/// An observer of several observables at once: derive from this and implement T's operations.
///
/// Observes each observable until stopObserving(), or until one of the two is destroyed.
template <typename T>
class common_MultiObserverOf : public T
{
public:
    common_MultiObserverOf() = default;
    common_MultiObserverOf(const common_MultiObserverOf&) = default;
    common_MultiObserverOf& operator=(const common_MultiObserverOf&) = default;

    /// Also observes this observable, which must not be null. Does nothing when it is observed
    /// already.
    void startObserving(common_ObservableVia<T>* pObservable)
    {
        if (!isObserving(pObservable)) {
            m_observerConnectionMap.insert(pObservable,
                                           new common_ObserverConnection<T>(this, pObservable));
        }
    }

    /// Stops observing this observable; asserts that it is observed.
    void stopObserving(common_ObservableVia<T>* pObservable)
    {
        COMMON_ASSERT_AT(isObserving(pObservable), "m_observerConnectionMap.contains(pObservable)",
                         "include/common_MultiObserverOf.h", 114);
        m_observerConnectionMap.remove(pObservable);
    }

    /// Whether this observes the observable.
    bool isObserving(common_ObservableVia<T>* pObservable) const
    {
        return m_observerConnectionMap.contains(pObservable);
    }

protected:
    ~common_MultiObserverOf() override = default;

private:
    QMap<common_ObservableVia<T>*, common_ActivePtr<common_ObserverConnection<T>>>
        m_observerConnectionMap;
};
