// SPDX-License-Identifier: MIT
#pragma once

namespace suite {

/// Every component pre-processes the model first and writes its results last. The part of the whole
/// run, in percent, that is done when pre-processing ends and when writing begins.
constexpr int preparedPercentage = 5;
constexpr int solvedPercentage = 95;

/// The part of a whole run that one of its stages takes, in percent.
struct ProgressShare
{
    int begin;
    int end;

    /// The percentage of the whole run at the point done/count of the stage.
    [[nodiscard]] constexpr int at(int done, int count) const
    {
        return begin + (end - begin) * done / count;
    }
};

/// The share of a run's only stage between these.
constexpr ProgressShare solvingShare = {preparedPercentage, solvedPercentage};

} // namespace suite
