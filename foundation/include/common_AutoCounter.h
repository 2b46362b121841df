// SPDX-License-Identifier: MIT
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

    /// Adds 1.
    void increment() { ++m_value; }
    /// Subtracts 1; the caller checks for 0.
    void decrement() { --m_value; }
    /// The number now; another thread may change it at any time.
    int value() const { return m_value; }

private:
    std::atomic<int> m_value{0};
};
