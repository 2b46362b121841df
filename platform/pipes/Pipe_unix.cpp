// SPDX-License-Identifier: MIT
#include "Pipe.h"

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Out of the way of the standard channels.
Descriptor moved(Descriptor descriptor)
{
    return descriptor.number() > STDERR_FILENO ? std::move(descriptor)
                                               : Descriptor::duplicateOf(descriptor.number());
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1))
{}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    if (this != &other) {
        close();
        m_number = std::exchange(other.m_number, -1);
    }
    return *this;
}

void Descriptor::close()
{
    if (isOpen()) {
        ::close(std::exchange(m_number, -1));
    }
}

Descriptor Descriptor::duplicateOf(int number)
{
    return Descriptor(::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

void Descriptor::setNonBlocking() const
{
    ::fcntl(m_number, F_SETFL, ::fcntl(m_number, F_GETFL) | O_NONBLOCK);
}

std::optional<Pipe> Pipe::make()
{
    int ends[2] = {};
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    Descriptor readEnd(ends[0]);
    Descriptor writeEnd(ends[1]);
    Pipe pipe = {moved(std::move(readEnd)), moved(std::move(writeEnd))};
    return pipe.readEnd.isOpen() && pipe.writeEnd.isOpen() ? std::make_optional(std::move(pipe))
                                                           : std::nullopt;
}
