// SPDX-License-Identifier: MIT
#pragma once

#include "Heartbeat.h"
#include "LocalSolver.h"
#include "MpiLink.h"

/// One process of a parallel sweep.
class SweepRank : public QObject
{
    Q_OBJECT

public:
    ~SweepRank() override;

    /// Ends the work of this process only.
    virtual void stop();

    /// Whether it was stopped because the process that distributes the work is silent.
    [[nodiscard]] bool isAbandoned() const { return m_isAbandoned; }

Q_SIGNALS:
    /// The work is done or has been stopped, the folder is removed, and this process can end.
    void finished();
    void stopped();

protected:
    /// `partners` is the number of processes whose silence is an error.
    SweepRank(MpiLink& link, int partners);

    MpiLink& link() { return m_link; }
    LocalSolver& solver() { return m_solver; }
    suite::Heartbeat& heartbeat() { return m_heartbeat; }
    [[nodiscard]] bool isStopping() const { return m_isStopping; }

    /// Stops because the process that distributes the work is silent.
    void stopAlone();

    /// Cleans up and emits finished().
    void finish();

    /// Prepares the work. Returns a text for the user if there is a problem; else an empty one.
    QString setUp(const suite::Frame& frame);

private:
    MpiLink& m_link;
    LocalSolver m_solver;
    suite::Heartbeat m_heartbeat;
    bool m_isStopping = false;
    bool m_isAbandoned = false;
};
