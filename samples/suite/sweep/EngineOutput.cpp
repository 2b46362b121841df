// SPDX-License-Identifier: MIT
#include "EngineOutput.h"

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

constexpr int mostComplaints = 5;

// The impedance's place in a line of the section of input parameters: TAG SEG VOLTAGE(2)
// CURRENT(2).
constexpr int resistanceColumn = 6;
constexpr int columnCount = 11;

// Times differ from run to run.
bool isTimeLine(const QByteArray& line)
{
    const QByteArray content = line.trimmed();
    return content.startsWith("TOTAL RUN TIME:") ||
           (content.startsWith("FILL:") && content.contains("FACTOR:"));
}

bool isComplaint(const QByteArray& line)
{
    static const QList<QByteArray> words = {"ERROR", "FAULT", "NO SEGMENT", "MUST NOT BE"};
    return std::any_of(words.begin(), words.end(),
                       [&](const QByteArray& word) { return line.contains(word); });
}

QByteArray joined(const QList<QByteArray>& lines)
{
    QByteArray result;
    for (const QByteArray& line : lines) {
        if (!isTimeLine(line)) {
            result += line + '\n';
        }
    }
    return result;
}

} // namespace

EngineOutput::EngineOutput(const QByteArray& bytes) : m_lines(bytes.split('\n'))
{
    if (!m_lines.isEmpty() && m_lines.last().isEmpty()) {
        m_lines.removeLast();
    }
    findImpedance();
}

// Only the first source is used.
void EngineOutput::findImpedance()
{
    const auto header = std::find_if(m_lines.begin(), m_lines.end(), [](const QByteArray& line) {
        return line.contains("--- ANTENNA INPUT PARAMETERS ---");
    });
    for (auto line = header; line != m_lines.end(); ++line) {
        const QList<QByteArray> fields = line->simplified().split(' ');
        bool isTag = false;
        fields.at(0).toInt(&isTag);
        if (!isTag || fields.size() != columnCount) {
            continue;
        }
        bool isResistance = false;
        bool isReactance = false;
        m_impedance.resistance = fields.at(resistanceColumn).toDouble(&isResistance);
        m_impedance.reactance = fields.at(resistanceColumn + 1).toDouble(&isReactance);
        m_hasImpedance = isResistance && isReactance && std::isfinite(m_impedance.resistance) &&
                         std::isfinite(m_impedance.reactance);
        return;
    }
}

QStringList EngineOutput::errorLines() const
{
    QStringList result;
    for (const QByteArray& line : m_lines) {
        if (isComplaint(line) && result.size() < mostComplaints) {
            result.append(QString::fromUtf8(line.simplified()));
        }
    }
    return result;
}

QByteArray EngineOutput::stableBytes() const
{
    return joined(m_lines);
}

QByteArray EngineOutput::stableBytesFromFrequency() const
{
    const auto header = std::find_if(m_lines.begin(), m_lines.end(), [](const QByteArray& line) {
        return line.contains("--------- FREQUENCY --------");
    });
    const int index = static_cast<int>(header - m_lines.begin());
    return header == m_lines.end() ? stableBytes() : joined(m_lines.mid(index));
}

} // namespace suite
