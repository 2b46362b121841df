// SPDX-License-Identifier: MIT
#include "Dealer.h"

#include <QTimer>

using namespace suite;

namespace {

// One to solve and one that waits, so that a process need not wait for the next.
constexpr int mostAtProcess = 2;

// Results that wait for an earlier one take memory at the receiver: this many a process.
constexpr int mostAhead = 16;

// Nor are there more dealt out while the receiver does not take what there is.
constexpr qint64 mostUnsent = 64 << 20; // bytes

constexpr int sentInterval = 5; // ms

} // namespace

Dealer::Dealer(MpiLink& link, int output)
    : SweepRank(link, link.count())
    , m_user(0, output)
    , m_dealt(static_cast<std::size_t>(link.count()), 0)
{
    connect(&link, &MpiLink::received, this, &Dealer::takeFromWorker);
    connect(&heartbeat(), &Heartbeat::beat, this, [this] {
        heartbeat().noteSign(this->link().rank());
        this->link().sendToOthers(Frame());
        m_user.send(Frame());
    });
    connect(&heartbeat(), &Heartbeat::lost, this, &Dealer::lose);
    connect(&m_userHeartbeat, &Heartbeat::lost, this, [this] { stopAlone(); });
    connect(&m_user, &FrameChannel::received, this, &Dealer::takeFromUser);
    connect(&m_user, &FrameChannel::closed, this, &Dealer::stop);
    connect(&m_user, &FrameChannel::sent, this, &Dealer::deal);
    connect(&solver(), &LocalSolver::solved, this,
            [this](int index, const QString& error, const QByteArray& bytes) {
                passOn(0, index,
                       Frame::of(Frame::Type::Result, static_cast<qint32>(index), qint32(0), error,
                                 bytes));
            });
    m_userHeartbeat.start();
    m_user.send(Frame::of(Frame::Type::Hello, frameProtocol));
}

void Dealer::stop()
{
    if (!isStopping()) {
        m_userHeartbeat.stop();
        link().sendToOthers(Frame::of(Frame::Type::Stop));
        SweepRank::stop();
    }
}

void Dealer::takeFromUser(const Frame& frame)
{
    m_userHeartbeat.noteSign();
    if (frame.type == Frame::Type::Part && m_count == 0) {
        takePart(frame);
    } else if (frame.type == Frame::Type::Stop) {
        stop();
    }
}

void Dealer::takePart(const Frame& frame)
{
    bool isLast = false;
    QByteArray bytes;
    if (!frame.read(isLast, bytes)) {
        stop();
        return;
    }
    m_setup.type = Frame::Type::Setup;
    m_setup.payload += bytes;
    if (isLast) {
        begin(m_setup);
    } else {
        m_user.send(Frame::of(Frame::Type::Next));
    }
}

void Dealer::begin(const Frame& frame)
{
    const QString warning = setUp(frame);
    if (!warning.isEmpty()) {
        m_user.send(Frame::of(Frame::Type::Warning, qint32(0), warning));
    }
    m_count = solver().count();
    link().sendToOthers(frame);
    deal();
}

// Everybody gets a first frequency before anybody gets a second.
void Dealer::deal()
{
    for (int round = 1; round <= mostAtProcess; ++round) {
        for (int rank = 0; rank < link().count(); ++rank) {
            const bool isAhead = m_nextDeal >= m_nextResult + link().count() * mostAhead;
            if (isStopping() || isAhead || m_nextDeal >= m_count || m_user.unsent() > mostUnsent) {
                return;
            }
            if (m_dealt.at(static_cast<std::size_t>(rank)) < round) {
                dealTo(rank, m_nextDeal++);
            }
        }
    }
}

void Dealer::dealTo(int rank, int index)
{
    ++m_dealt.at(static_cast<std::size_t>(rank));
    if (rank == link().rank()) {
        solver().queue(index);
    } else {
        link().send(rank, Frame::of(Frame::Type::Job, static_cast<qint32>(index)));
    }
}

void Dealer::takeFromWorker(int rank, const Frame& frame)
{
    heartbeat().noteSign(rank);
    qint32 index = 0;
    QString text;
    if (frame.type == Frame::Type::Result && frame.read(index)) {
        passOn(rank, index, frame);
    } else if (frame.type == Frame::Type::Warning && frame.read(text)) {
        m_user.send(Frame::of(Frame::Type::Warning, static_cast<qint32>(rank), text));
    }
}

void Dealer::passOn(int rank, int index, const Frame& result)
{
    m_user.send(result);
    --m_dealt.at(static_cast<std::size_t>(rank));
    m_early.insert(index);
    while (m_early.erase(m_nextResult) != 0) {
        ++m_nextResult;
    }
    if (m_nextResult == m_count) {
        heartbeat().stop();
        m_userHeartbeat.stop();
        link().sendToOthers(Frame::of(Frame::Type::Exit));
        finishWhenSent();
        return;
    }
    deal();
}

// Does not stop by itself: a user who is there stops everything. If none is, this is the host that
// was cut off, which the user's silence shows a little later. The others hear this process until
// then.
void Dealer::lose(int rank)
{
    if (!m_hasLostOne) {
        m_hasLostOne = true;
        m_user.send(Frame::of(Frame::Type::Failure, static_cast<qint32>(rank),
                              QStringLiteral("does not answer any more")));
    }
}

void Dealer::finishWhenSent()
{
    if (isStopping()) {
        return;
    }
    if (m_user.unsent() == 0 && link().isIdle()) {
        finish();
    } else {
        QTimer::singleShot(sentInterval, this, &Dealer::finishWhenSent);
    }
}
