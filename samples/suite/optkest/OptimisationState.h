// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"

#include <QString>
#include <QVector>

/// One evaluation: the run's number, the tried value and the result.
struct Evaluation
{
    int run = 0;
    double value = 0;
    suite::Impedance impedance;

    /// The quantity to minimise, in ohm.
    [[nodiscard]] double objective() const;
};

/// The state of an optimisation after each evaluation, sufficient to continue from there.
struct OptimisationState
{
    /// At once when runs with different numbers have found the points: no search repeats them.
    static constexpr int mixed = 0;

    QString fingerprint; ///< of the model
    QString name;        // of the value
    double low = 0;
    double high = 0;
    double frequency = 0;
    int atOnce = 1;
    QVector<Evaluation> evaluations; ///< in the order of their runs

    /// Whether both optimise the same value of the same model in the same range.
    [[nodiscard]] bool isSameQuestion(const OptimisationState& other) const;

    /// The highest number of a run; 0 without runs.
    [[nodiscard]] int lastRun() const;

    /// Adds an evaluation at its place.
    void add(const Evaluation& evaluation);

    /// Writes the state to a file in one step; an error text on failure.
    [[nodiscard]] QString write(const QString& path) const;

    /// Reads a file that write() made; an error text on failure.
    [[nodiscard]] QString read(const QString& path);

    /// Reads the state of an earlier search to restart from a run of it: it must have reached that
    /// run and be about the same question; an error text on failure.
    [[nodiscard]] QString readEarlier(const QString& path, const OptimisationState& question,
                                      int run);

    /// The evaluations as a table.
    [[nodiscard]] QByteArray csv() const;
};
