// SPDX-License-Identifier: MIT
#include "SweepRunner.h"

namespace suite {

SweepRunner::SweepRunner() = default;

SweepRunner::~SweepRunner() = default;

QString SweepRunner::frequencyError(double frequency, const QString& reason)
{
    return QStringLiteral("at %1 MHz %2").arg(QString::number(frequency, 'g', 10), reason);
}

QString SweepRunner::noImpedanceError()
{
    return QStringLiteral("the engine gave no input impedance that is a number");
}

} // namespace suite
