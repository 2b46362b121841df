// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

/// The expected pace of a run before it has reported progress, from its model and from earlier
/// runs.
struct PaceExpectation
{
    /// How the earlier runs match this one.
    enum class Basis {
        None,      ///< no earlier run matches
        OtherSize, ///< another size: they only show the time after the last phase
        Alike ///< same number of frequencies, similar number of segments: they show the course of
              ///< the work
    };

    Basis basis = Basis::None;
    QVector<double> totalTimes; ///< when each total percentage (0 to 100) comes, in milliseconds
    double duration = 0;        ///< milliseconds
    double spread = 1;          ///< standard deviation of the duration, as a fraction of it
    int frequencies = 0;        ///< of this run's model; 0 when it is not known
    bool isOpenEnded = false;   ///< only a similar earlier run shows where it ends
};
