#pragma once

namespace suite {

/// Every component pre-processes the model first and writes its results last. This much of the
/// whole run is done, in percent, when pre-processing ends and when writing begins.
constexpr int preparedPercentage = 5;
constexpr int solvedPercentage = 95;

/// The part of a whole run that one of its stages takes, in percent.
struct ProgressShare
{
    int begin;
    int end;

    /// How much of the whole run is done when this much of the stage is.
    [[nodiscard]] constexpr int at(int done, int count) const
    {
        return begin + (end - begin) * done / count;
    }
};

/// The share of runs that have one stage between these.
constexpr ProgressShare solvingShare = {preparedPercentage, solvedPercentage};

} // namespace suite
