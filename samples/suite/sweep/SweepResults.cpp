// SPDX-License-Identifier: MIT
#include "SweepResults.h"

#include "ModelFile.h"

namespace suite {

namespace {

constexpr int outputFile = 0;
constexpr int tableFile = 1;

} // namespace

bool SweepResults::open(const ModelFile& model)
{
    return m_files.open(
        {model.resultPath(QStringLiteral("out")), model.resultPath(QStringLiteral("csv"))});
}

bool SweepResults::add(double frequency, const EngineOutput& output)
{
    const bool isFirst = m_table.points.isEmpty();
    m_table.points.append(
        {frequency, output.hasImpedance() ? std::make_optional(output.impedance()) : std::nullopt});
    return m_files.write(outputFile,
                         isFirst ? output.stableBytes() : output.stableBytesFromFrequency());
}

bool SweepResults::commit()
{
    return m_files.write(tableFile, m_table.bytes()) && m_files.commit();
}

} // namespace suite
