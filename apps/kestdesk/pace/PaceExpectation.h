#pragma once

#include <QVector>

/// What is known of the pace of a run before it has a pace of its own: from its model, and from
/// earlier runs.
struct PaceExpectation
{
    /// How the earlier runs match this one.
    enum class Basis {
        None,      ///< there is none
        OtherSize, ///< another size: only what comes after the last phase can be taken from them
        Alike      ///< as many frequencies, about as many segments: they show how the work goes on
    };

    Basis basis = Basis::None;
    QVector<double> totalTimes; ///< when each total percentage (0 to 100) comes, in milliseconds
    double duration = 0;        ///< milliseconds
    double spread = 1;          ///< standard deviation of the duration, as a part of it
    int frequencies = 0;        ///< of this run's model; 0 when it is not known
    bool isOpenEnded = false;   ///< nothing but a run that was alike tells where it ends
};
