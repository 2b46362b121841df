// SPDX-License-Identifier: MIT
#pragma once

#include <Impedance.h>

#include <QString>

#include <optional>

namespace suite {

/// The impedance from the table of a run of the solver at one frequency.
struct SolvedImpedance
{
    std::optional<Impedance> impedance;
    QString error; ///< why there is none; empty when there is one

    static SolvedImpedance read(const QString& tablePath);
};

} // namespace suite
