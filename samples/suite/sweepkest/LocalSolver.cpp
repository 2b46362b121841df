// SPDX-License-Identifier: MIT
#include "LocalSolver.h"

#include "EngineJob.h"
#include "EngineProgram.h"
#include "StopTimes.h"

#include <MarkedFolders.h>

using namespace suite;

LocalSolver::LocalSolver() : m_processes(parallelEngineStopTimes)
{
    connect(&m_processes, &ChildProcesses::allEnded, this, [this] {
        m_folder.reset();
        Q_EMIT stopped();
    });
}

void LocalSolver::setUp(const SweepDeck& deck, Priority priority)
{
    const EngineProgram engine;
    m_engine = engine.path();
    m_engineError = engine.error();
    m_deck = deck;
    m_priority = priority;
    MarkedFolders::removeLeft();
    m_folder.emplace(MarkedFolders::marked(QStringLiteral("kest-sweep")));
}

void LocalSolver::queue(int index)
{
    m_queue.push_back(index);
    if (m_index < 0) {
        startNext();
    }
}

void LocalSolver::stop()
{
    m_isStopping = true;
    m_processes.stop();
}

void LocalSolver::startNext()
{
    if (m_isStopping || m_queue.empty()) {
        return;
    }
    m_index = m_queue.front();
    m_queue.pop_front();
    const QString error = setupError();
    if (!error.isEmpty()) {
        Q_EMIT solved(m_index, error, QByteArray());
        return;
    }
    auto job = std::make_unique<EngineJob>(m_engine, m_folder->path(), m_index);
    EngineJob& started = *job;
    started.setPriority(m_priority);
    connect(&started, &EngineJob::done, this, &LocalSolver::finishJob);
    m_processes.add(m_index, std::move(job));
    started.solve(m_deck.deck(m_index));
}

void LocalSolver::finishJob()
{
    if (m_isStopping) {
        return;
    }
    const auto* job = static_cast<EngineJob*>(m_processes.release(m_index));
    const int index = m_index;
    m_index = -1;
    startNext();
    Q_EMIT solved(index, job->error(), job->output());
}

QString LocalSolver::setupError() const
{
    if (m_engine.isEmpty()) {
        return m_engineError;
    }
    return m_folder ? m_folder->error() : QStringLiteral("there is no temporary folder");
}
