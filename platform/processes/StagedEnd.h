// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

/// Time limits for the end of processes, in milliseconds from the request on.
struct StopTimes
{
    int killing;    ///< until the remaining processes are killed
    int givingUp;   ///< until the end is reported in any case, because not every process can be
                    ///< killed
    int asking = 0; ///< until the processes are asked to end
};

/// Ends processes in three stages, without blocking: they are asked to end, the remaining ones are
/// killed, and those that cannot be killed are given up.
///
/// Each stage is repeated: a process that was just starting may miss the first request, and may
/// start others while processes are being killed.
class StagedEnd : public QObject
{
    Q_OBJECT

public:
    /// The actions on the processes.
    struct Deeds
    {
        std::function<bool()> areAlive;
        std::function<void()> ask; ///< may be empty
        std::function<void()> kill;
    };

    explicit StagedEnd(Deeds deeds, QObject* parent = nullptr);

    /// Starts with the first stage, even if it has already been started.
    void start(StopTimes times);

    /// Changes the time limits, counted from the same request.
    void setTimes(StopTimes times) { m_times = times; }

    /// Stops: nothing more is done or reported.
    void cancel() { m_timer.stop(); }

    [[nodiscard]] bool isActive() const { return m_timer.isActive(); }

Q_SIGNALS:
    /// All processes have ended or were given up. Emitted once after start(), from the event loop.
    void ended();

private:
    void look();
    void act(qint64 elapsed) const;

    Deeds m_deeds;
    StopTimes m_times = {0, 0};
    QTimer m_timer;
    QElapsedTimer m_clock;
};
