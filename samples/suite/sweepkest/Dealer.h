// SPDX-License-Identifier: MIT
#pragma once

#include "FrameChannel.h"
#include "SweepRank.h"

#include <set>
#include <vector>

/// The first process: reads the work from its standard input, distributes the frequencies to all
/// processes including itself, and writes the results to its standard output.
class Dealer : public SweepRank
{
    Q_OBJECT

public:
    /// `output` is the descriptor to write to.
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
    suite::Frame m_setup;     // the received part
    std::vector<int> m_dealt; ///< number of pending frequencies, by process
    std::set<int> m_early;    // results that have arrived before an earlier one
    int m_count = 0;
    int m_nextDeal = 0;
    int m_nextResult = 0;
    bool m_hasLostOne = false; ///< and has reported it
};
