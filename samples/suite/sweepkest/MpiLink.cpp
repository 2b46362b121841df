// SPDX-License-Identifier: MIT
#include "MpiLink.h"

#include <mpi.h>

using namespace suite;

// A message on its way; its bytes must stay where they are.
struct MpiTransfer
{
    int rank = 0;
    Frame frame;
    MPI_Request request = MPI_REQUEST_NULL;

    bool isDone()
    {
        int done = 0;
        MPI_Test(&request, &done, MPI_STATUS_IGNORE);
        return done != 0;
    }
};

namespace {

// The link is looked at often while messages come, and now and then in a long computation.
constexpr int busyInterval = 1;   // ms
constexpr int quietInterval = 10; // ms
constexpr int quietAfter = 100;   // ms

} // namespace

MpiLink::MpiLink()
{
    MPI_Comm_set_errhandler(MPI_COMM_WORLD, MPI_ERRORS_RETURN);
    MPI_Comm_rank(MPI_COMM_WORLD, &m_rank);
    MPI_Comm_size(MPI_COMM_WORLD, &m_count);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &MpiLink::poll);
    m_timer.start(busyInterval);
    m_quiet.start();
}

MpiLink::~MpiLink() = default;

void MpiLink::send(int rank, const Frame& frame)
{
    auto transfer = std::make_unique<MpiTransfer>();
    transfer->rank = rank;
    transfer->frame = frame;
    MPI_Isend(transfer->frame.payload.constData(), transfer->frame.payload.size(), MPI_BYTE, rank,
              static_cast<int>(frame.type), MPI_COMM_WORLD, &transfer->request);
    m_sending.push_back(std::move(transfer));
}

void MpiLink::sendToOthers(const Frame& frame)
{
    for (int rank = 0; rank < m_count; ++rank) {
        if (rank != m_rank) {
            send(rank, frame);
        }
    }
}

void MpiLink::poll()
{
    bool isBusy = false;
    while (acceptMessage()) {
        isBusy = true;
    }
    isBusy = finishSending() || isBusy;
    isBusy = finishReceiving() || isBusy;
    if (isBusy) {
        m_quiet.restart();
    }
    const int interval = m_quiet.elapsed() < quietAfter ? busyInterval : quietInterval;
    if (m_timer.isActive() && m_timer.interval() != interval) {
        m_timer.setInterval(interval);
    }
}

bool MpiLink::acceptMessage()
{
    int isThere = 0;
    MPI_Message message = MPI_MESSAGE_NULL;
    MPI_Status status;
    MPI_Improbe(MPI_ANY_SOURCE, MPI_ANY_TAG, MPI_COMM_WORLD, &isThere, &message, &status);
    if (isThere == 0) {
        return false;
    }
    int size = 0;
    MPI_Get_count(&status, MPI_BYTE, &size);
    auto transfer = std::make_unique<MpiTransfer>();
    transfer->rank = status.MPI_SOURCE;
    transfer->frame.type = static_cast<Frame::Type>(status.MPI_TAG);
    transfer->frame.payload.resize(size);
    MPI_Imrecv(transfer->frame.payload.data(), size, MPI_BYTE, &message, &transfer->request);
    m_receiving.push_back(std::move(transfer));
    return true;
}

// Told in the order of arrival; a receiver may send.
bool MpiLink::finishReceiving()
{
    bool isAny = false;
    while (!m_receiving.empty() && m_receiving.front()->isDone()) {
        const std::unique_ptr<MpiTransfer> transfer = std::move(m_receiving.front());
        m_receiving.pop_front();
        isAny = true;
        Q_EMIT received(transfer->rank, transfer->frame);
    }
    return isAny;
}

bool MpiLink::finishSending()
{
    const std::size_t before = m_sending.size();
    m_sending.remove_if([](const auto& transfer) { return transfer->isDone(); });
    return m_sending.size() != before;
}
