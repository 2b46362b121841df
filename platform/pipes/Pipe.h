// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// An open file descriptor, closed with the object. Child processes do not inherit it.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { close(); }

    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    /// The number of the descriptor; -1 if it is not open.
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    void close();

    /// Duplicates a descriptor, such as a standard channel that stays open. The new number is not
    /// that of a standard channel.
    static Descriptor duplicateOf(int number);

    /// From now on reads and writes fail instead of blocking.
    void setNonBlocking() const;

private:
    int m_number = -1;
};

/// A pipe with both ends in this process. Neither is a standard channel, even if those are closed.
struct Pipe
{
    Descriptor readEnd;
    Descriptor writeEnd;

    /// Creates a pipe; on failure returns nothing and sets errno.
    static std::optional<Pipe> make();
};
