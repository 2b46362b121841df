// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class ProcessEnd;

/// How a run ended, and why: one rule for the terminal and for the window.
class RunOutcome
{
public:
    enum class Kind { Valid, Fault, NotStarted, Stopped };

    /// The outcome of a run that could not be started.
    static RunOutcome notStarted();

    /// The outcome of a run that was asked to stop and whose component cannot be killed.
    static RunOutcome stopped();

    /// The outcome of a run that has ended. A run is valid if it reported 100 % and its process
    /// ended well, even if it was asked to stop: its results are complete. Otherwise it is stopped
    /// if it was asked to end, by the user or from outside, whatever its exit code; all other runs
    /// are faults.
    static RunOutcome of(const ProcessEnd& end, int totalPercentage, bool isStopRequested);

    /// The percentage of a run after its component has reported one. Values that are not numbers
    /// from 0 to 100 are ignored, as in the process dialog: then the percentage before is returned.
    static int percentage(const QString& reported, int before);

    Kind kind() const { return m_kind; }

    /// The kind in one word or a few.
    QString word() const { return word(m_kind); }
    static QString word(Kind kind);

    /// The word; for a fault with the cause: "fault, SIGKILL".
    QString title() const;

    /// The reason as a clause whose subject is the component: "was ended by ..."; empty if the word
    /// says everything.
    QString reason() const { return m_reason; }

private:
    explicit RunOutcome(Kind kind) : m_kind(kind) {}

    Kind m_kind;
    QString m_cause;
    QString m_reason;
};
