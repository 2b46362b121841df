#pragma once

#include "FrameChannel.h"
#include "SweepRank.h"

#include <set>
#include <vector>

/// The first process: takes the work from its standard input, deals the frequencies out to all
/// processes including itself, and passes the results on to its standard output.
class Dealer : public SweepRank
{
    Q_OBJECT

public:
    /// The descriptor is the one to print on.
    Dealer(MpiLink& link, int output);

    void stop() override;

private:
    void takeFromUser(const suite::Frame& frame);
    void takeFromWorker(int rank, const suite::Frame& frame);
    void takePart(const suite::Frame& frame);
    void begin(const suite::Frame& frame);
    void deal();
    void dealTo(int rank, int index);
    void passOn(int rank, int index, const suite::Frame& result);
    void lose(int rank);
    void finishWhenSent();

    suite::FrameChannel m_user;
    suite::Heartbeat m_userHeartbeat;
    suite::Frame m_setup;     // as far as it has come
    std::vector<int> m_dealt; ///< how many frequencies a process has at the moment
    std::set<int> m_early;    // results that are there before an earlier one
    int m_count = 0;
    int m_nextDeal = 0;
    int m_nextResult = 0;
};
