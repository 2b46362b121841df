// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <Impedance.h>

#include <QByteArray>
#include <QVector>

#include <optional>

/// One step of a refinement.
struct Iteration
{
    int factor = 1; ///< number of pieces of each segment of the model
    int segments = 0;
    suite::Impedance impedance;
    std::optional<double> change; ///< since the step before, as a fraction of the impedance
};

/// The iterations of a refinement so far. Decides when it ends.
class RefinementHistory
{
public:
    /// The refinement ends when the impedance changes by less than the threshold, a fraction of it,
    /// or after the largest number of iterations.
    RefinementHistory(double threshold, int mostIterations);

    [[nodiscard]] int mostIterations() const { return m_mostIterations; }
    [[nodiscard]] int count() const { return m_iterations.size(); }

    /// The last iteration; there must be one.
    [[nodiscard]] const Iteration& last() const { return m_iterations.last(); }

    /// The factor of the next iteration.
    [[nodiscard]] int nextFactor() const { return 2 * count() + 1; }

    /// Adds the next iteration.
    void add(int segments, const suite::Impedance& impedance);

    /// Why the refinement ends; empty if another iteration follows. The obstacle says why another
    /// one is impossible, or is empty. There must be an iteration.
    [[nodiscard]] suite::FindingList conclusion(const suite::FindingList& obstacle) const;

    /// The threshold in percent, and a line about the last iteration.
    [[nodiscard]] QString thresholdText() const;
    [[nodiscard]] QString lastText() const;

    /// The iterations as a table of comma-separated values.
    [[nodiscard]] QByteArray table() const;

private:
    double m_threshold;
    int m_mostIterations;
    QVector<Iteration> m_iterations;
};
