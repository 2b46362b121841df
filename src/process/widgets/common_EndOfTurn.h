#pragma once

#include <QObject>

#include <functional>

/// Does something once when control returns to the event loop, however often it was asked to
/// before: what is too slow to be done for every line of a flood is done for all lines of a turn.
class common_EndOfTurn : public QObject
{
    Q_OBJECT

public:
    explicit common_EndOfTurn(std::function<void()> deed);

    /// To be done at the end of this turn. Nothing is done when this object is gone by then.
    void ask();

private:
    std::function<void()> m_deed;
    bool m_isAsked = false;
};
