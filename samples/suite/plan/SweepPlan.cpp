// SPDX-License-Identifier: MIT
#include "SweepPlan.h"

#include "EngineProgram.h"
#include "MachinesFindings.h"
#include "MpiSweep.h"
#include "ParallelRuns.h"
#include "Sweep.h"

#include <HostName.h>
#include <RemoteHost.h>

#include <QThread>

namespace suite {

namespace {

bool has(const CommandLine& line, const char* name)
{
    return line.has(OptionGroup::Runkest, QLatin1String(name));
}

QString valueOf(const CommandLine& line, const char* name)
{
    return line.value(OptionGroup::Runkest, QLatin1String(name));
}

// What keeps the parallel runtime from reaching the host; empty when nothing does.
QString hostError(const RemoteHost& host)
{
    if (!host.arguments().isEmpty()) {
        return QStringLiteral("the parallel runtime reaches the remote host by its name alone, "
                              "without a user and other words");
    }
    return host.error().isEmpty() ? QString()
                                  : QStringLiteral("in the option --remote-host ") + host.error();
}

} // namespace

SweepPlan::SweepPlan(const CommandLine& line)
    : m_priority(has(line, "--priority") ? valueOf(line, "--priority").toInt()
                                         : Priority::normalLevel)
{
    if (has(line, "--remote-use-mpi") && has(line, "--remote-host")) {
        readRemoteHost(line);
    } else if (has(line, "--parallel-authenticate") || has(line, "--machines-file")) {
        readMachines(line);
    }
    readProcesses(line);
    if (m_isParallel) {
        checkHosts();
    } else {
        findEngine();
    }
}

// Where processes may run on this machine only, neither the file nor a job matters.
void SweepPlan::readMachines(const CommandLine& line)
{
    m_isParallel = true;
    if (valueOf(line, "--parallel-authenticate") == QLatin1String("localonly")) {
        return;
    }
    const RunMachines chosen(has(line, "--machines-file")
                                 ? std::make_optional(valueOf(line, "--machines-file"))
                                 : std::nullopt);
    if (chosen.hasSource()) {
        m_machines = chosen.machines();
        m_source = chosen.source();
        MachinesFindings::add(m_findings, chosen);
    }
}

void SweepPlan::readRemoteHost(const CommandLine& line)
{
    m_isParallel = true;
    const RemoteHost host(valueOf(line, "--remote-host"));
    const QString error = hostError(host);
    if (!error.isEmpty()) {
        m_findings.add(FindingKind::BadCommandLine, 0, {error});
        return;
    }
    bool isNumber = false;
    const int count = line.processCount(OptionGroup::Runkest).toInt(&isNumber);
    m_machines = MachinesFile::ofHost(host.name(), isNumber ? count : 1);
}

void SweepPlan::readProcesses(const CommandLine& line)
{
    bool isNumber = false;
    const int wanted = line.processCount(OptionGroup::Runkest).toInt(&isNumber);
    const int all = m_machines ? m_machines->total() : QThread::idealThreadCount();
    m_processes = isNumber ? wanted : all;
    if (m_machines && m_machines->isValid() && m_processes > all) {
        m_findings.add(FindingKind::MoreProcesses, 0,
                       {QString::number(m_processes), QString::number(all), m_source});
    }
    if (!m_isParallel && !m_priority.isAllowed()) {
        m_findings.add(FindingKind::PriorityNotRaised);
    }
}

// The runtime's own list of hosts knows no such addresses.
void SweepPlan::checkHosts()
{
    const QString obstacle = ParallelRuns::obstacle();
    if (!obstacle.isEmpty()) {
        m_findings.add(FindingKind::BadCommandLine, 0, {obstacle});
        return;
    }
    if (!m_machines) {
        return;
    }
    for (const MachinesFile::Entry& entry : m_machines->hosts()) {
        if (HostName::isAddress(entry.host)) {
            m_findings.add(FindingKind::MachinesFileUnusable, 0,
                           {QStringLiteral("the parallel runtime takes no IPv6 address, the host "
                                           "'%1' needs a name")
                                .arg(entry.host)});
        }
    }
}

void SweepPlan::findEngine()
{
    const EngineProgram engine;
    m_engine = engine.path();
    if (m_engine.isEmpty()) {
        m_findings.add(FindingKind::EngineMissing, 0, {engine.error()});
    }
}

int SweepPlan::processes(int frequencies) const
{
    return qMin(m_processes, frequencies);
}

QString SweepPlan::description(int frequencies) const
{
    const int count = processes(frequencies);
    return m_isParallel
               ? QStringLiteral("Solving %1 frequencies by %2 processes")
                     .arg(frequencies)
                     .arg(count)
               : QStringLiteral("Solving %1 frequencies, %2 at once").arg(frequencies).arg(count);
}

std::unique_ptr<SweepRunner> SweepPlan::makeRunner(const SweepDeck& deck, bool needsImpedance) const
{
    const int count = processes(deck.count());
    if (m_isParallel) {
        return std::make_unique<MpiSweep>(deck, ParallelSetup{m_machines, count, m_priority},
                                          needsImpedance);
    }
    auto sweep = std::make_unique<Sweep>(deck, m_engine, count, needsImpedance);
    sweep->setPriority(m_priority);
    return sweep;
}

} // namespace suite
