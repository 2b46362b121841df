#pragma once

#include "RunRecord.h"

class WindowRun;

/// A run in the list of runs: its record, and while this window has it the run itself, which says
/// more and sooner. A plain value.
struct ListedRun
{
    RunRecord record;         ///< with number 0 as long as there is none
    WindowRun* run = nullptr; ///< not owned; null for a run that this window has not started

    /// Absolute path.
    QString model() const;
    QString component() const;

    /// Of the record; 0 without one.
    int number() const;

    /// The state that the user can choose to see.
    RunRecord::State state() const;

    /// In a few words; of a fault also what ended the run: "fault, SIGKILL".
    QString stateText() const;

    /// The state as a sentence or two, with what the end usually means.
    QString explanation() const;

    /// Name of the picture for the state.
    const char* icon() const;

    /// Of the work, in per cent.
    int progress() const;

    /// Milliseconds from the start to now, or to the end.
    qint64 elapsed() const;

    /// UTC.
    QDateTime started() const;

    int errors() const;
    int warnings() const;

    /// "2 errors, 1 warning"; empty without any.
    QString messageText() const;

    /// Which face shows it on which computer, if not this window's on this one: "terminal on b".
    QString place() const;

    /// Whether it is still going, here or elsewhere.
    bool isRunning() const { return state() == RunRecord::State::Running; }
};
