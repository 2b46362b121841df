// SPDX-License-Identifier: MIT
#include "SlurmJob.h"

#include "HostList.h"
#include "TaskCounts.h"

#include <QSet>

namespace suite {

namespace {

constexpr int longestShown = 60; // characters of a variable's value
const QString idVariable = QStringLiteral("SLURM_JOB_ID");
const QString hostsVariable = QStringLiteral("SLURM_JOB_NODELIST");

// The first that covers all hosts is used.
const QString countVariables[] = {QStringLiteral("SLURM_TASKS_PER_NODE"),
                                  QStringLiteral("SLURM_JOB_CPUS_PER_NODE"),
                                  QStringLiteral("SLURM_CPUS_ON_NODE")};

QString shown(const QString& value)
{
    return value.size() > longestShown ? value.left(longestShown) + QStringLiteral("...") : value;
}

QString withoutDomain(const QString& host)
{
    return host.section(QLatin1Char('.'), 0, 0);
}

/// The names of hosts. A name without a domain is that of any domain.
class HostNames
{
public:
    explicit HostNames(const MachinesFile& machines)
    {
        for (const MachinesFile::Entry& entry : machines.hosts()) {
            const QString name = entry.host.toLower();
            m_names.insert(name);
            m_namesWithoutDomains.insert(withoutDomain(name));
        }
    }

    [[nodiscard]] bool have(const QString& host) const
    {
        const QString name = host.toLower();
        const QString shortName = withoutDomain(name);
        return m_names.contains(name) || m_names.contains(shortName) ||
               (name == shortName && m_namesWithoutDomains.contains(name));
    }

private:
    QSet<QString> m_names;
    QSet<QString> m_namesWithoutDomains;
};

} // namespace

SlurmJob::SlurmJob(const QProcessEnvironment& environment)
    : m_id(environment.value(idVariable).trimmed())
{
    if (isThere()) {
        read(environment);
    }
}

QString SlurmJob::name() const
{
    return QStringLiteral("the Slurm job %1").arg(shown(m_id));
}

void SlurmJob::read(const QProcessEnvironment& environment)
{
    const QString value = environment.value(hostsVariable);
    if (value.isEmpty()) {
        fail(QStringLiteral("%1 is not set").arg(hostsVariable));
        return;
    }
    const HostList list = HostList::parse(value);
    if (!list.error.isEmpty()) {
        fail(QStringLiteral("%1 is '%2', %3").arg(hostsVariable, shown(value), list.error));
        return;
    }
    const QVector<int> counts = readCounts(environment, list.hosts.size());
    QByteArray content;
    for (int i = 0; i < counts.size(); ++i) {
        content += list.hosts.at(i).toLatin1() + ':' + QByteArray::number(counts.at(i)) + '\n';
    }
    if (m_error.isEmpty()) {
        m_machines = MachinesFile::parse(content, name());
    }
    if (!m_machines.isValid()) { // the lines are right, so what is wrong is the whole
        fail(m_machines.findings().constLast().reason);
    }
}

// One for each host; none after an error.
QVector<int> SlurmJob::readCounts(const QProcessEnvironment& environment, int hosts)
{
    QString mismatch = QStringLiteral("%1 is not set").arg(countVariables[0]);
    for (const QString& variable : countVariables) {
        const QString value = environment.value(variable);
        if (value.isEmpty()) {
            continue;
        }
        const TaskCounts counts = TaskCounts::parse(value);
        if (!counts.error.isEmpty()) {
            fail(QStringLiteral("%1 is '%2', %3").arg(variable, shown(value), counts.error));
            return {};
        }
        if (counts.counts.size() == hosts) {
            return counts.counts;
        }
        mismatch = QStringLiteral("%1 is '%2', which is for %3 hosts and not for the %4 of %5")
                       .arg(variable, shown(value))
                       .arg(counts.counts.size())
                       .arg(hosts)
                       .arg(hostsVariable);
    }
    fail(mismatch);
    return {};
}

QString SlurmJob::firstForeignHost(const MachinesFile& file) const
{
    const HostNames own(m_machines);
    for (const MachinesFile::Entry& entry : file.hosts()) {
        if (!own.have(entry.host)) {
            return entry.host;
        }
    }
    return {};
}

void SlurmJob::fail(const QString& reason)
{
    m_error = QStringLiteral("%1 cannot be used: %2 (unset %3 to run without the job)")
                  .arg(name(), reason, idVariable);
    m_machines = {};
}

} // namespace suite
