#pragma once

#include <optional>

/// An open file of this process, closed with the object. Programs that are started do not inherit
/// it.
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

    /// -1 when it is not open.
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    void close();

    /// Another number for the same open file, such as a standard channel that stays open. It is not
    /// a standard channel itself.
    static Descriptor duplicateOf(int number);

    /// Reads and writes fail from now on instead of waiting.
    void setNonBlocking() const;

private:
    int m_number = -1;
};

/// A pipe, both ends in this process. None of them is a standard channel, not even where those are
/// closed.
struct Pipe
{
    Descriptor readEnd;
    Descriptor writeEnd;

    /// Nothing when there is none to be had; errno says why.
    static std::optional<Pipe> make();
};
