// SPDX-License-Identifier: MIT
#include "EvaluationFarm.h"

#include "StopTimes.h"

#include <QSysInfo>

#include <memory>
#include <utility>

using suite::ComponentRun;
using suite::Marker;
using suite::MarkerLine;

namespace {

// Runs on this machine need no way to a host.
bool isThisMachine(const QString& host)
{
    const QString own = QSysInfo::machineHostName();
    const QStringList names = {QStringLiteral("localhost"), QStringLiteral("127.0.0.1"),
                               QStringLiteral("::1"), own, own.section(QLatin1Char('.'), 0, 0)};
    return names.contains(host, Qt::CaseInsensitive);
}

} // namespace

EvaluationFarm::EvaluationFarm(QStringList hosts, QStringList options)
    : m_hosts(std::move(hosts)), m_options(std::move(options)), m_processes(suite::runkestStopTimes)
{
    connect(&m_processes, &ChildProcesses::allEnded, this, &EvaluationFarm::ended);
}

// The host comes before the user's options, so that one of theirs wins.
void EvaluationFarm::start(int place, int run, const QString& model)
{
    const QString& host = m_hosts.at(place);
    QStringList arguments = {model};
    if (!isThisMachine(host)) {
        arguments += {QStringLiteral("--remote-host"), host};
    }
    auto process = std::make_unique<ComponentRun>();
    connect(process.get(), &ComponentRun::printed, this, [this, run](const MarkerLine& line) {
        if (line.marker == Marker::TotalPercentage && !m_isStopping) {
            Q_EMIT progressed(run, line.percentage());
        }
    });
    connect(process.get(), &ComponentRun::ended, this, [this, run, host] { finishRun(run, host); });
    ComponentRun& started = *process;
    m_processes.add(run, std::move(process));
    started.startComponent(QStringLiteral("runkest"), arguments + m_options);
}

void EvaluationFarm::stop()
{
    m_isStopping = true;
    m_processes.stop();
}

void EvaluationFarm::finishRun(int run, const QString& host)
{
    if (m_isStopping) {
        return;
    }
    const auto* process = static_cast<ComponentRun*>(m_processes.release(run));
    if (process->isSuccess()) {
        Q_EMIT succeeded(run, host);
    } else {
        Q_EMIT failed(run, host, process->error());
    }
}
