// SPDX-License-Identifier: MIT
#pragma once

#include "Frame.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <list>
#include <memory>

struct MpiTransfer;

/// Exchanges frames between the processes of a parallel run. Never blocks: sending and receiving
/// continue from the event loop.
class MpiLink : public QObject
{
    Q_OBJECT

public:
    MpiLink();
    ~MpiLink() override;

    [[nodiscard]] int rank() const { return m_rank; }
    [[nodiscard]] int count() const { return m_count; }

    void send(int rank, const suite::Frame& frame);

    /// Sends to all but this process.
    void sendToOthers(const suite::Frame& frame);

    /// Whether all frames from this process have been sent.
    [[nodiscard]] bool isIdle() const { return m_sending.empty(); }

    void stop() { m_timer.stop(); }

Q_SIGNALS:
    void received(int rank, const suite::Frame& frame);

private:
    void poll();
    bool acceptMessage();
    bool finishReceiving();
    bool finishSending();

    int m_rank = 0;
    int m_count = 1;
    QTimer m_timer;
    QElapsedTimer m_quiet;
    std::list<std::unique_ptr<MpiTransfer>> m_sending;
    std::list<std::unique_ptr<MpiTransfer>> m_receiving;
};
