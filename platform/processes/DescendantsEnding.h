#pragma once

#include "StagedEnd.h"

/// Ends, without waiting for it, the processes that others have left behind.
class DescendantsEnding : public QObject
{
    Q_OBJECT

public:
    DescendantsEnding();

    /// The processes may take that many milliseconds to end by themselves before they are killed.
    void start(int graceTime);

    /// Kills what is left at once.
    void hurry();

    bool isActive() const { return m_end.isActive(); }

Q_SIGNALS:
    /// Once after start(), from the event loop: none is left, or what is left cannot be killed.
    void ended();

private:
    StagedEnd m_end;
};
