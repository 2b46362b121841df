// SPDX-License-Identifier: MIT
#pragma once

#include <common_Assert.h>
#include <common_AutoCounter.h>

template <typename T>
class common_ObservableVia;

/// Connects one observer with one observable, so that either may be destroyed first.
///
/// Observers own their connection through common_ActivePtr; observables list connections without
/// owning them. A connection is attached to its observable from its construction until one of the
/// two is destroyed, and is never attached again. It always names the same observer, which must
/// exist as long as the connection is attached.
template <typename T>
class common_ObserverConnection
{
public:
    /// Attaches the new connection to the observable, which must not be null.
    common_ObserverConnection(T* pObserver, common_ObservableVia<T>* pObservable)
        : m_pObserver(pObserver), m_pObservable(pObservable)
    {
        COMMON_ASSERT_AT(pObservable, "pObservable != NULL", "include/common_ObserverConnection.h",
                         128);
        pObservable->attachObserverVia(this);
    }

    common_ObserverConnection(const common_ObserverConnection&) = delete;
    common_ObserverConnection& operator=(const common_ObserverConnection&) = delete;

    /// Detaches the connection if its observable still exists.
    virtual ~common_ObserverConnection()
    {
        if (m_pObservable) {
            m_pObservable->detachObserverVia(this);
            m_pObservable = nullptr;
        }
    }

    /// The observer to call; asserts that there is one.
    T* getObserver() const
    {
        COMMON_ASSERT_AT(m_pObserver, "m_pObserver", "include/common_ObserverConnection.h", 54);
        return m_pObserver;
    }

    /// Whether there is an observer to call; asserts nothing.
    bool hasObserver() const { return m_pObserver; }

    /// The observable, or null once detached.
    common_ObservableVia<T>* getObservable() const { return m_pObservable; }

    /// Called by the observable's destructor.
    void forgetObservable() { m_pObservable = nullptr; }

    void reference() { m_refCount.increment(); }
    void dereference()
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0",
                         "include/common_ObserverConnection.h", 22);
        m_refCount.decrement();
    }
    int getRefCount() const { return m_refCount.value(); }

private:
    common_AutoCounter m_refCount;
    T* m_pObserver;
    common_ObservableVia<T>* m_pObservable;
};
