// SPDX-License-Identifier: MIT
#include "EvaluationPlaces.h"

#include "MachinesFindings.h"

#include <RunMachines.h>

#include <QThread>

using namespace suite;

namespace {

constexpr int mostPlaces = 500;

} // namespace

EvaluationPlaces::EvaluationPlaces(const CommandLine& line)
{
    const QString machinesFile = QStringLiteral("--machines-file");
    const QString wanted = line.processCount(OptionGroup::Optkest);
    if (line.has(OptionGroup::Optkest, machinesFile)) {
        readMachinesFile(line.value(OptionGroup::Optkest, machinesFile), wanted);
    } else {
        takeThisMachine(wanted);
    }
}

// All places of the file where no number is wanted.
void EvaluationPlaces::readMachinesFile(const QString& path, const QString& wanted)
{
    const RunMachines chosen(path);
    MachinesFindings::add(m_findings, chosen);
    bool isNumber = false;
    const int number = wanted.toInt(&isNumber);
    const int most = isNumber ? qMin(number, mostPlaces) : mostPlaces;
    for (const MachinesFile::Entry& entry : chosen.machines().hosts()) {
        for (int i = 0; i < entry.count && m_hosts.size() < most; ++i) {
            m_hosts.append(entry.host);
        }
    }
    if (!m_findings.hasErrors() && isNumber && m_hosts.size() < most) {
        m_findings.add(FindingKind::FarmTooSmall, 0,
                       {QString::number(number), QString::number(m_hosts.size()), chosen.source()});
    }
}

// One place where no number is wanted.
void EvaluationPlaces::takeThisMachine(const QString& wanted)
{
    const bool isAll = wanted == QLatin1String("all");
    const int number = isAll ? QThread::idealThreadCount() : wanted.toInt();
    for (int i = 0; i < qBound(1, number, mostPlaces); ++i) {
        m_hosts.append(QStringLiteral("localhost"));
    }
}
