#pragma once

#include <QString>
#include <QStringList>

struct RunRecord;

/// What decides how long a run takes, as far as it is known before.
struct RunSize
{
    QString component;
    QString model;       ///< absolute path
    QString place;       ///< the computer that it runs on
    int segments = 0;    ///< 0 when it is not known
    int frequencies = 0; ///< 0 when it is not known
    int processes = 1;
    bool isAdaptive = false;  ///< solves fewer frequencies than it counts; false when not known
    bool isContinued = false; ///< takes over results of an earlier run

    static RunSize of(const RunRecord& record);

    /// Adds what the model's file says. Waits for the disk.
    void readModel();

    /// Whether nothing but an earlier run tells where such a run ends.
    bool isOpenEnded() const;

    /// Whether the earlier run's course is that of this one, slower or faster.
    bool isAlike(const RunSize& earlier) const;

    /// How many times as long as the earlier run this one should take.
    double ratio(const RunSize& earlier) const;

    /// How sure that is: the standard deviation of the ratio, as a part of it.
    double spread(const RunSize& earlier) const;
};
