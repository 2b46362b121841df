#pragma once

#include <Impedance.h>

#include <QByteArray>
#include <QStringList>

namespace suite {

/// Reads what the engine wrote for one frequency.
class EngineOutput
{
public:
    explicit EngineOutput(const QByteArray& bytes);

    /// True when an input impedance was found that is a number.
    [[nodiscard]] bool hasImpedance() const { return m_hasImpedance; }
    [[nodiscard]] Impedance impedance() const { return m_impedance; }

    /// Lines in which the engine reports errors.
    [[nodiscard]] QStringList errorLines() const;

    /// The output without the lines that change from run to run.
    [[nodiscard]] QByteArray stableBytes() const;

    /// The same from the first frequency on: what a further frequency adds to the first output.
    [[nodiscard]] QByteArray stableBytesFromFrequency() const;

private:
    void findImpedance();

    QList<QByteArray> m_lines;
    Impedance m_impedance;
    bool m_hasImpedance = false;
};

} // namespace suite
