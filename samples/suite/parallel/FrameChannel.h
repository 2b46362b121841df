// SPDX-License-Identifier: MIT
#pragma once

#include "Frame.h"

#include <PipeReader.h>
#include <PipeWriter.h>

#include <QObject>

namespace suite {

/// Frames over two descriptors of this process, usually its standard channels. Reading and writing
/// never block.
class FrameChannel : public QObject
{
    Q_OBJECT

public:
    /// The descriptors stay open when the channel is closed.
    FrameChannel(int input, int output);

    void send(const Frame& frame);

    /// The number of bytes that are not written yet.
    [[nodiscard]] qint64 unsent() const { return m_output.unsent(); }

Q_SIGNALS:
    void received(const suite::Frame& frame);

    /// All bytes have been written.
    void sent();

    /// The other end is closed, or does not send frames.
    void closed();

private:
    void take(const QByteArray& bytes);
    void close();

    PipeReader m_input;
    PipeWriter m_output;
    FrameReader m_reader;
    bool m_isClosed = false;
};

} // namespace suite
