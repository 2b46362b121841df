#pragma once

#include <atomic>

/// An integer that starts at 0 and is incremented and decremented atomically.
///
/// A copy starts with the current value and is independent afterwards.
class common_AutoCounter
{
public:
    common_AutoCounter() = default;
    common_AutoCounter(const common_AutoCounter& other) : m_value(other.value()) {}
    common_AutoCounter& operator=(const common_AutoCounter& other)
    {
        m_value = other.value();
        return *this;
    }
    ~common_AutoCounter() = default;

    void increment() { ++m_value; }
    void decrement() { --m_value; }
    int value() const { return m_value; }

private:
    std::atomic<int> m_value{0};
};
