#pragma once

#include <RunArchive.h>

#include <optional>

/// The runs that a user names in a terminal: by their numbers, or "last".
class RunNumbers
{
public:
    explicit RunNumbers(RunArchive archive);

    /// The number that the word means; nothing when it is not one, or when there is no run at all.
    std::optional<int> parse(const QString& word);

    /// The record that the word means; nothing when there is none that can be read.
    std::optional<RunRecord> record(const QString& word);

    /// Why the last call has returned nothing, as a clause.
    QString problem() const { return m_problem; }

    /// Whether the word was not even a number.
    bool isNoNumber() const { return m_isNoNumber; }

private:
    RunArchive m_archive;
    QString m_problem;
    bool m_isNoNumber = false;
};
