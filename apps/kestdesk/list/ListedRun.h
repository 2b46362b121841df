// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

class WindowRun;

/// A row of the list of runs: the record, and for a run of this session the run itself, which is
/// more recent. A plain value.
struct ListedRun
{
    RunRecord record;         ///< its number is 0 while there is no record
    WindowRun* run = nullptr; ///< not owned; null for a run that this window has not started

    /// Absolute path of the model; empty for a damaged record.
    QString model() const;

    /// Absolute path of the model's folder, or else of the record's.
    QString folder() const;

    /// Whether there is a record that can be read.
    bool hasRecord() const { return number() > 0 && state() != RunRecord::State::Damaged; }
    QString component() const;

    /// Number of the record; 0 without one.
    int number() const;

    /// The state by which the list is filtered.
    RunRecord::State state() const;

    /// The state in a few words; for a fault with the cause: "fault, SIGKILL".
    QString stateText() const;

    /// The state in a sentence or two, with the usual meaning of the end.
    QString explanation() const;

    /// Name of the icon for the state.
    const char* icon() const;

    /// Total percentage, 0 to 100.
    int progress() const;

    /// Milliseconds from the start until now, or until the end.
    qint64 elapsed() const;

    /// Time of the start, UTC.
    QDateTime started() const;

    int errors() const;
    int warnings() const;

    /// "2 errors, 1 warning"; empty without any.
    QString messageText() const;

    /// The face and the computer, as far as they differ from this window and this computer:
    /// "terminal on b".
    QString place() const;

    /// Whether the run still runs, in this program or in another one.
    bool isRunning() const { return state() == RunRecord::State::Running; }
};
