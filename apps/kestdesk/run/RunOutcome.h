#pragma once

#include <QString>

class ProcessEnd;

/// What became of a run, and why: one rule for the terminal and for the window.
class RunOutcome
{
public:
    enum class Kind { Valid, Fault, NotStarted, Stopped };

    /// Of a run that could not be started.
    static RunOutcome notStarted();

    /// Of a run that was asked to stop and whose component cannot be ended.
    static RunOutcome stopped();

    /// Of a run that has ended. Valid is what reported all of the work as done and ended well, even
    /// if it had been asked to stop: nothing is missing from its results. Stopped is what the user,
    /// or somebody else, asked to end, however it did; a fault is all the rest.
    static RunOutcome of(const ProcessEnd& end, int totalPercentage, bool isStopRequested);

    /// What is done of a run after its component has reported a percentage: what is out of the
    /// range counts for nothing, as in the run's own window.
    static int percentage(const QString& reported, int before);

    Kind kind() const { return m_kind; }

    /// In one word or a few.
    QString word() const { return word(m_kind); }
    static QString word(Kind kind);

    /// The word, and of a fault what ended the run: "fault, SIGKILL".
    QString title() const;

    /// Why, as a clause whose subject is the component: "was ended by ..."; empty where the word
    /// says it all.
    QString reason() const { return m_reason; }

private:
    explicit RunOutcome(Kind kind) : m_kind(kind) {}

    Kind m_kind;
    QString m_cause;
    QString m_reason;
};
