// SPDX-License-Identifier: MIT
#pragma once

#include <RunArchive.h>

#include <optional>

/// Finds the runs that a user names in a terminal: by number, or "last".
class RunNumbers
{
public:
    explicit RunNumbers(RunArchive archive);

    /// The number for a word; nothing if the word is invalid, or if there is no run at all.
    std::optional<int> parse(const QString& word);

    /// The record for a word; nothing if there is no readable one.
    std::optional<RunRecord> record(const QString& word);

    /// Why the last call returned nothing, as a clause.
    QString problem() const { return m_problem; }

    /// Whether the last call failed because the word was neither a number nor "last".
    bool isInvalidWord() const { return m_isInvalidWord; }

private:
    RunArchive m_archive;
    QString m_problem;
    bool m_isInvalidWord = false;
};
