// SPDX-License-Identifier: MIT
#pragma once

#include <RecordedMessage.h>
#include <RunPace.h>

#include <QMetaType>

#include <functional>

/// The course of a run whose steps take what a function says: first a check, which is 5 % of the
/// total, then the frequencies, up to 95 %, then the writing of results.
class PlayedRun
{
public:
    using Cost = std::function<double(double done)>; ///< ms of a step; done is from 0 to 1

    PlayedRun() = default; // for rows of tests

    PlayedRun(int steps, const Cost& cost, double check = 1000, double writing = 0)
    {
        double time = check;
        add(time, common_IProcessMessage::Percentage, 0);
        add(time, common_IProcessMessage::TotalPercentage, 5);
        for (int step = 1; step <= steps; ++step) {
            time += cost(static_cast<double>(step) / steps);
            add(time, common_IProcessMessage::Percentage, 100 * step / steps);
            add(time, common_IProcessMessage::TotalPercentage, 5 + 90 * step / steps);
        }
        m_duration = static_cast<qint64>(time + writing);
    }

    qint64 duration() const { return m_duration; }
    const QVector<RecordedMessage>& messages() const { return m_messages; }

    /// What is expected of a run that is like this one.
    PaceExpectation expectation(double spread = 0.2) const
    {
        RunProgress progress;
        for (const RecordedMessage& message : m_messages) {
            progress.add(message.time, message.type, message.text);
        }
        PaceExpectation result;
        result.basis = PaceExpectation::Basis::Alike;
        result.spread = spread;
        result.duration = static_cast<double>(m_duration);
        for (const qint64 time : progress.totalTimes()) {
            result.totalTimes.append(static_cast<double>(time < 0 ? m_duration : time));
        }
        return result;
    }

    /// The estimate at that part of the duration.
    std::optional<RunPace::Estimate> estimate(double part, const PaceExpectation& expected) const
    {
        const auto now = static_cast<qint64>(part * static_cast<double>(m_duration));
        return paceAt(now, expected).remaining(now);
    }

    /// The estimate divided by the truth, the same; 0 where there is none to be shown.
    double ratio(double part, const PaceExpectation& expected) const
    {
        const auto found = estimate(part, expected);
        return found && found->isReliable()
                   ? found->remaining / ((1 - part) * static_cast<double>(m_duration))
                   : 0;
    }

    RunPace paceAt(qint64 now, const PaceExpectation& expected) const
    {
        RunPace pace;
        pace.expect(expected);
        for (const RecordedMessage& message : m_messages) {
            if (message.time <= now) {
                pace.add(message.time, message.type, message.text);
            }
        }
        return pace;
    }

private:
    void add(double time, common_IProcessMessage::Type type, int percentage)
    {
        m_messages.append({static_cast<qint64>(time), type, QString::number(percentage)});
    }

    QVector<RecordedMessage> m_messages;
    qint64 m_duration = 0; ///< ms
};

Q_DECLARE_METATYPE(PlayedRun)
Q_DECLARE_METATYPE(PaceExpectation)
