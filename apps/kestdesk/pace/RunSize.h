// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

struct RunRecord;

/// The facts known before a run that determine its duration.
struct RunSize
{
    QString component;
    QString model;       ///< absolute path
    QString place;       ///< the computer that it runs on
    int segments = 0;    ///< 0 when it is not known
    int frequencies = 0; ///< 0 when it is not known
    int processes = 1;
    bool isAdaptive = false;  ///< solves fewer frequencies than it counts; false if unknown
    bool isContinued = false; ///< takes over results of an earlier run

    static RunSize of(const RunRecord& record);

    /// Adds the facts from the model's file. Waits for the disk.
    void readModel();

    /// Whether only an earlier run shows where such a run ends.
    bool isOpenEnded() const;

    /// Whether the earlier run had the same course as this one, at another pace.
    bool isSimilarTo(const RunSize& earlier) const;

    /// The expected duration of this run divided by that of the earlier one.
    double ratio(const RunSize& earlier) const;

    /// Standard deviation of the ratio, as a fraction of it.
    double spread(const RunSize& earlier) const;
};
