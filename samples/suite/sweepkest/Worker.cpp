// SPDX-License-Identifier: MIT
#include "Worker.h"

using namespace suite;

namespace {

constexpr int dealerRank = 0;

} // namespace

// A worker that does not hear the dealer any more is alone: its host was cut off.
Worker::Worker(MpiLink& link) : SweepRank(link, 1)
{
    connect(&link, &MpiLink::received, this, [this](int, const Frame& frame) { take(frame); });
    connect(&heartbeat(), &Heartbeat::beat, this,
            [this] { this->link().send(dealerRank, Frame()); });
    connect(&heartbeat(), &Heartbeat::lost, this, [this] { stopAlone(); });
    connect(&solver(), &LocalSolver::solved, this, &Worker::report);
}

void Worker::take(const Frame& frame)
{
    heartbeat().noteSign();
    qint32 index = 0;
    switch (frame.type) {
    case Frame::Type::Setup: {
        const QString warning = setUp(frame);
        if (!warning.isEmpty()) {
            link().send(dealerRank, Frame::of(Frame::Type::Warning, warning));
        }
        break;
    }
    case Frame::Type::Job:
        if (frame.read(index)) {
            solver().queue(index);
        }
        break;
    case Frame::Type::Exit:
        finish();
        break;
    case Frame::Type::Stop:
        stop();
        break;
    default:
        break;
    }
}

void Worker::report(int index, const QString& error, const QByteArray& output)
{
    link().send(dealerRank, Frame::of(Frame::Type::Result, static_cast<qint32>(index),
                                      static_cast<qint32>(link().rank()), error, output));
}
