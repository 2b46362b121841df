// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

namespace suite {

/// Numbers for the hosts of a list in the notation of Slurm: "2(x3),1" is 2, 2, 2 and 1.
struct TaskCounts
{
    QVector<int> counts; ///< in the order of the hosts; empty when there is an error
    QString error;       ///< what is wrong, as part of a sentence; empty when nothing is

    static TaskCounts parse(const QString& text);
};

} // namespace suite
