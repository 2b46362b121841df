#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

/// How long the end of processes may take, in ms from the request on.
struct StopTimes
{
    int killing;    ///< until those that stay are killed
    int givingUp;   ///< until the end is reported in any case: not every process can be killed
    int asking = 0; ///< until they are asked to end
};

/// The end of processes in three stages, without waiting for it: they are asked, those that stay
/// are killed, and those that cannot be killed are given up.
///
/// Each is done again and again: a process that was about to start its program, or to listen, has
/// not received the first request, and what it starts while others are killed is found later.
class StagedEnd : public QObject
{
    Q_OBJECT

public:
    /// What is done to the processes.
    struct Deeds
    {
        std::function<bool()> areAlive;
        std::function<void()> ask; ///< may be missing
        std::function<void()> kill;
    };

    explicit StagedEnd(Deeds deeds, QObject* parent = nullptr);

    /// Begins with the first stage, also when it has begun already.
    void start(StopTimes times);

    /// Other times from the same request on.
    void setTimes(StopTimes times) { m_times = times; }

    /// Nothing more is done or reported.
    void cancel() { m_timer.stop(); }

    [[nodiscard]] bool isActive() const { return m_timer.isActive(); }

Q_SIGNALS:
    /// None is alive any more, or those that are were given up. Once after start(), from the event
    /// loop.
    void ended();

private:
    void look();
    void act(qint64 elapsed) const;

    Deeds m_deeds;
    StopTimes m_times = {0, 0};
    QTimer m_timer;
    QElapsedTimer m_clock;
};
