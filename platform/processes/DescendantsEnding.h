// SPDX-License-Identifier: MIT
#pragma once

#include "StagedEnd.h"

/// Ends the processes that child processes have left behind, without blocking.
class DescendantsEnding : public QObject
{
    Q_OBJECT

public:
    DescendantsEnding();

    /// The processes get this time, in milliseconds, to end by themselves before they are killed.
    void start(int graceTime);

    /// Kills the remaining processes at once.
    void hurry();

    bool isActive() const { return m_end.isActive(); }

Q_SIGNALS:
    /// No process is left, or the remaining ones cannot be killed. Emitted once after start(), from
    /// the event loop.
    void ended();

private:
    StagedEnd m_end;
};
