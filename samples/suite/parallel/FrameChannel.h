#pragma once

#include "Frame.h"

#include <QObject>
#include <QSocketNotifier>

namespace suite {

/// Frames over two descriptors of this process, usually its standard channels. Neither reading nor
/// writing ever waits.
class FrameChannel : public QObject
{
    Q_OBJECT

public:
    FrameChannel(int input, int output);

    void send(const Frame& frame);

    /// How many bytes the other end has not taken yet.
    [[nodiscard]] qint64 unsent() const { return m_unsent.size() - m_start; }

Q_SIGNALS:
    void received(const suite::Frame& frame);

    /// All bytes have been written.
    void sent();

    /// The other end is closed, or does not send frames.
    void closed();

private:
    void read();
    void write();
    void close();

    int m_inputDescriptor;
    int m_outputDescriptor;
    QSocketNotifier m_input;
    QSocketNotifier m_output;
    FrameReader m_reader;
    QByteArray m_unsent;
    int m_start = 0;
    bool m_isClosed = false;
};

} // namespace suite
