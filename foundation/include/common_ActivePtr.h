// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

/// How common_ActivePtr counts objects that carry their own count: through their operations
/// reference(), dereference() and getRefCount(). The object is deleted when the count reaches 0.
/// A pointer to const counts, too: the count is not part of the object's value.
struct IntrusivePtrActor
{
    /// Adds a reference; the object must not be null.
    template <typename T>
    static void acquire(T* object)
    {
        const_cast<std::remove_const_t<T>*>(object)->reference();
    }

    /// Removes a reference, and deletes the object when it was the last one. Must not be null.
    template <typename T>
    static void release(T* object)
    {
        const_cast<std::remove_const_t<T>*>(object)->dereference();
        if (object->getRefCount() == 0) {
            delete object;
        }
    }
};

/// A pointer that shares the ownership of a reference-counted object.
///
/// Every non-null pointer holds one reference and releases it when it is destroyed, reset or
/// assigned. The pointer already has its new value when the old object is destroyed, so that the
/// old object's destructor may look at it. T may be incomplete where pointers are only passed on by
/// reference.
///
/// Only objects made with new may be given to it. The constructor from a raw pointer is implicit: a
/// function that takes a common_ActivePtr accepts the address of an object on the stack, or of one
/// that somebody else owns, and the last pointer deletes it.
template <typename T, typename Actor = IntrusivePtrActor>
class common_ActivePtr
{
public:
    common_ActivePtr() = default;

    /// A null pointer.
    common_ActivePtr(std::nullptr_t) {}

    /// Takes a reference to the object, which was made with new; null makes a null pointer.
    common_ActivePtr(T* object) : m_object(object) { acquire(); }

    common_ActivePtr(const common_ActivePtr& other) : m_object(other.m_object) { acquire(); }

    common_ActivePtr(common_ActivePtr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {}

    /// From a pointer to a derived class.
    template <typename Derived,
              typename = std::enable_if_t<std::is_convertible<Derived*, T*>::value>>
    common_ActivePtr(const common_ActivePtr<Derived, Actor>& other) : m_object(other.get())
    {
        acquire();
    }

    ~common_ActivePtr()
    {
        if (m_object) {
            Actor::release(m_object);
        }
    }

    /// Accepts copies, moves, raw pointers, null and pointers to derived classes.
    common_ActivePtr& operator=(common_ActivePtr other) noexcept
    {
        swap(other);
        return *this;
    }

    /// Releases the object and takes a reference to the given one, if any.
    void reset(T* object = nullptr) { common_ActivePtr(object).swap(*this); }

    /// Exchanges the objects; no count changes.
    void swap(common_ActivePtr& other) noexcept { std::swap(m_object, other.m_object); }

    /// The object, still owned by the pointers to it; null for a null pointer.
    T* get() const { return m_object; }
    /// The object; undefined for a null pointer.
    T* operator->() const { return m_object; }
    /// The object; undefined for a null pointer.
    T& operator*() const { return *m_object; }
    /// Whether there is no object.
    bool isNull() const { return !m_object; }
    /// Whether there is an object.
    explicit operator bool() const { return m_object; }

private:
    void acquire()
    {
        if (m_object) {
            Actor::acquire(m_object);
        }
    }

    T* m_object = nullptr;
};

template <typename T, typename U, typename Actor>
bool operator==(const common_ActivePtr<T, Actor>& left, const common_ActivePtr<U, Actor>& right)
{
    return left.get() == right.get();
}

template <typename T, typename U, typename Actor>
bool operator!=(const common_ActivePtr<T, Actor>& left, const common_ActivePtr<U, Actor>& right)
{
    return left.get() != right.get();
}

/// T is not deduced from the raw pointer, so that nullptr and derived classes compare as well.
template <typename T, typename Actor>
bool operator==(const common_ActivePtr<T, Actor>& left, const std::enable_if_t<true, T>* right)
{
    return left.get() == right;
}

template <typename T, typename Actor>
bool operator==(const std::enable_if_t<true, T>* left, const common_ActivePtr<T, Actor>& right)
{
    return left == right.get();
}

template <typename T, typename Actor>
bool operator!=(const common_ActivePtr<T, Actor>& left, const std::enable_if_t<true, T>* right)
{
    return left.get() != right;
}

template <typename T, typename Actor>
bool operator!=(const std::enable_if_t<true, T>* left, const common_ActivePtr<T, Actor>& right)
{
    return left != right.get();
}
