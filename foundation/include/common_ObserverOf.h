// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_ObservableVia.h>
#include <common_ObserverConnection.h>

/// An observer of one observable: derive from this and implement T's operations.
///
/// Observes until stopObserving(), until it starts to observe something else, or until it is
/// destroyed. A copy shares the source's connection, which still calls the source and not the copy;
/// so do not copy an observer while it observes, unless the source outlives the copy.
template <typename T>
class common_ObserverOf : public T
{
public:
    common_ObserverOf() = default;
    common_ObserverOf(const common_ObserverOf&) = default;
    common_ObserverOf& operator=(const common_ObserverOf&) = default;

protected:
    /// Observes the observable; null means not observing.
    explicit common_ObserverOf(common_ObservableVia<T>* pObservable)
    {
        if (pObservable) {
            startObserving(pObservable);
        }
    }

    ~common_ObserverOf() override = default;

    /// Starts to observe this observable, which must not be null, instead of the previous one.
    void startObserving(common_ObservableVia<T>* pObservable)
    {
        COMMON_ASSERT_AT(pObservable, "pObservable", "include/common_ObserverOf.h", 83);
        m_pConnection = new common_ObserverConnection<T>(this, pObservable);
    }

    /// Stops observing. Does nothing when there is nothing to stop.
    void stopObserving()
    {
        const common_ActivePtr<common_ObserverConnection<T>> released = std::move(m_pConnection);
    }

private:
    common_ActivePtr<common_ObserverConnection<T>> m_pConnection;
};
