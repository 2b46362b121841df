// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

/// Runs an action once when control returns to the event loop, however often it was requested
/// before: what is too slow to be done for each line is done once for all lines of a turn.
class common_EndOfTurn : public QObject
{
    Q_OBJECT

public:
    explicit common_EndOfTurn(std::function<void()> deed);

    /// Requests the action for the end of this turn. It is not run if this object is destroyed
    /// before.
    void ask();

private:
    std::function<void()> m_deed;
    bool m_isAsked = false;
};
