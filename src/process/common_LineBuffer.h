// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

class QIODevice;

/// Cuts a stream of bytes into lines, and long lines into pieces.
///
/// Replaces QIODevice::canReadLine() and readLine(), which search a long line from its beginning
/// for every piece: a line of 100 MB would keep the application busy for hours. Here each byte is
/// looked at once.
class common_LineBuffer
{
public:
    /// Appends everything that the device has on its current read channel.
    void readFrom(QIODevice& device);

    /// Whether there is a whole line, or the rest of a line of which pieces were taken.
    bool hasLine();

    /// The next line with its line end, or the next piece of 1023 bytes of a longer line, decoded
    /// as UTF-8. Only when hasLine().
    QString takePiece();

    void clear();

private:
    void dropTaken();

    std::string m_bytes;
    std::size_t m_taken = 0;    ///< bytes before this were taken
    std::size_t m_searched = 0; ///< no line end between m_lineEnd and this
    std::size_t m_lineEnd = 0;  ///< behind the line end of the current line; 0 when not known
};
