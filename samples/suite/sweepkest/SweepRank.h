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

    /// Ends all that runs here, without the others.
    virtual void stop();

    /// True when it was stopped because the process that distributes the work is silent.
    [[nodiscard]] bool isAlone() const { return m_isAlone; }

Q_SIGNALS:
    /// Everything is done, or has been stopped, and this process can leave; its folder is removed.
    void finished();
    void stopped();

protected:
    /// "partners" is the number of processes whose silence is an error.
    SweepRank(MpiLink& link, int partners);

    MpiLink& link() { return m_link; }
    LocalSolver& solver() { return m_solver; }
    suite::Heartbeat& heartbeat() { return m_heartbeat; }
    [[nodiscard]] bool isStopping() const { return m_isStopping; }

    /// Stops because the process that distributes the work is silent.
    void stopAlone();

    /// Removes what is left of the work and emits finished().
    void finish();

    /// Prepares the work; a text when the user should know something.
    QString setUp(const suite::Frame& frame);

private:
    MpiLink& m_link;
    LocalSolver m_solver;
    suite::Heartbeat m_heartbeat;
    bool m_isStopping = false;
    bool m_isAlone = false;
};
