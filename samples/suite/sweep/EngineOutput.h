// SPDX-License-Identifier: MIT
#pragma once

#include <Impedance.h>

#include <QByteArray>
#include <QStringList>

namespace suite {

/// Reads the engine's output for one frequency.
class EngineOutput
{
public:
    explicit EngineOutput(const QByteArray& bytes);

    /// Whether the output has an input impedance that is a finite number.
    [[nodiscard]] bool hasImpedance() const { return m_hasImpedance; }
    [[nodiscard]] Impedance impedance() const { return m_impedance; }

    /// The lines in which the engine reports errors.
    [[nodiscard]] QStringList errorLines() const;

    /// The output without the lines that change from run to run.
    [[nodiscard]] QByteArray stableBytes() const;

    /// The same from the first frequency on: the part to append to the output of an earlier
    /// frequency.
    [[nodiscard]] QByteArray stableBytesFromFrequency() const;

private:
    void findImpedance();

    QList<QByteArray> m_lines;
    Impedance m_impedance;
    bool m_hasImpedance = false;
};

} // namespace suite
