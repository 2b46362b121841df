// SPDX-License-Identifier: MIT
#include "ComponentStage.h"

namespace suite {

ComponentStage::ComponentStage(StopTimes times) : m_processes(times)
{
    connect(&m_processes, &ChildProcesses::allEnded, this, &ComponentStage::ended);
}

void ComponentStage::start(const QString& name, const QStringList& arguments)
{
    auto run = std::make_unique<ComponentRun>();
    m_run = run.get();
    m_processes.add(0, std::move(run));
    connect(m_run, &ComponentRun::printed, this, &ComponentStage::printed);
    connect(m_run, &ComponentRun::ended, this, &ComponentStage::finish);
    m_run->startComponent(name, arguments);
}

void ComponentStage::stop()
{
    m_isStopping = true;
    m_processes.stop();
}

void ComponentStage::finish()
{
    if (m_isStopping) {
        return;
    }
    m_isStopping = true;
    m_isSuccess = m_run->isSuccess();
    m_error = m_isSuccess ? QString() : m_run->error();
    m_exitCode = m_run->hasExited() ? m_run->exitCode() : EXIT_FAILURE;
    m_processes.release(0);
    Q_EMIT ended();
}

} // namespace suite
