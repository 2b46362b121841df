// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>

#include <optional>

namespace suite {

/// One message between processes of a run that are connected by a stream of bytes.
struct Frame
{
    /// The numbers are part of the protocol.
    enum class Type : quint8 {
        Alive = 1,    // the sender is alive
        Hello = 2,    // the protocol's number; the first of all
        Setup = 3,    // the work
        Stop = 4,     // end everything
        Result = 5,   // one frequency of a sweep
        Warning = 6,  ///< a text for the user
        Failure = 7,  ///< a text for the user; the sender ends
        Line = 8,     // one line that the remote run printed
        File = 9,     // one file that the remote run wrote
        Exit = 10,    // the last of all: the remote run's exit code
        Job = 11,     // a frequency to solve
        Part = 12,    // a piece of a frame's payload, and whether it is the last
        Next = 13,    // asks for the next piece
        Partial = 14, ///< one line of the remote run's partial results
    };

    Type type = Type::Alive;
    QByteArray payload;

    /// The frame as it goes over the stream.
    [[nodiscard]] QByteArray bytes() const;

    /// Makes a frame whose payload contains the values in order; reads the values back, or returns
    /// false if the payload is too short.
    template <typename... Values>
    static Frame of(Type type, const Values&... values)
    {
        Frame result;
        result.type = type;
        QDataStream stream(&result.payload, QIODevice::WriteOnly);
        prepare(stream);
        (void)(stream << ... << values);
        return result;
    }
    template <typename... Values>
    bool read(Values&... values) const
    {
        QDataStream stream(payload);
        prepare(stream);
        (void)(stream >> ... >> values);
        return stream.status() == QDataStream::Ok;
    }

private:
    static void prepare(QDataStream& stream) { stream.setVersion(QDataStream::Qt_5_15); }
};

/// The version of the protocol, which must be the same at both ends.
constexpr qint32 frameProtocol = 2;

/// Splits a stream of bytes into frames.
class FrameReader
{
public:
    /// Adds bytes as they come.
    void add(const QByteArray& bytes) { m_bytes += bytes; }

    /// The next complete frame; nothing if there is none yet.
    std::optional<Frame> next();

    /// Whether the bytes are not frames, because another program prints on the stream.
    [[nodiscard]] bool isBroken() const { return m_isBroken; }

    /// The bytes behind the last frame.
    [[nodiscard]] QByteArray rest() const { return m_bytes.mid(m_start); }

private:
    QByteArray m_bytes;
    int m_start = 0;
    bool m_isBroken = false;
};

} // namespace suite
