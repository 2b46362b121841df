// SPDX-License-Identifier: MIT
#include "Sweep.h"

#include "EngineJob.h"
#include "StopTimes.h"

#include <MarkedFolders.h>

#include <utility>

namespace suite {

namespace {

// Results that wait for an earlier frequency take memory: at most this many for each process.
constexpr int mostWaitingPerProcess = 16;

} // namespace

Sweep::Sweep(SweepDeck deck, QString engine, int atOnce, bool needsImpedance)
    : m_deck(std::move(deck))
    , m_engine(std::move(engine))
    , m_atOnce(atOnce)
    , m_needsImpedance(needsImpedance)
    , m_folder(MarkedFolders::marked(QStringLiteral("kest-sweep")))
    , m_processes(engineStopTimes)
{
    connect(&m_processes, &ChildProcesses::allEnded, this, &Sweep::endStopped);
}

void Sweep::start()
{
    MarkedFolders::removeLeft();
    if (!m_folder.isValid()) {
        Q_EMIT failed(m_folder.error());
        stop();
        return;
    }
    startJobs();
}

void Sweep::stop()
{
    if (m_stopping) {
        return;
    }
    m_stopping = true;
    m_processes.stop();
}

void Sweep::startJobs()
{
    const int horizon = m_nextResult + m_atOnce * mostWaitingPerProcess;
    while (!m_stopping && m_nextStart < qMin(m_deck.count(), horizon) &&
           m_processes.count() < m_atOnce) {
        startJob(m_nextStart++);
    }
}

void Sweep::startJob(int index)
{
    auto job = std::make_unique<EngineJob>(m_engine, m_folder.path(), index);
    connect(job.get(), &EngineJob::done, this, [this, index] { finishJob(index); });
    EngineJob& started = *job;
    started.setPriority(m_priority);
    m_processes.add(index, std::move(job));
    started.solve(m_deck.deck(index));
}

void Sweep::finishJob(int index)
{
    if (m_stopping) {
        return;
    }
    const auto* job = static_cast<EngineJob*>(m_processes.release(index));
    const EngineOutput output(job->output());
    QString error = job->error();
    if (error.isEmpty() && m_needsImpedance && !output.hasImpedance()) {
        error = noImpedanceError();
    }
    if (!error.isEmpty()) {
        fail(index, error);
        return;
    }
    Q_EMIT arrived(index, output);
    m_waiting.emplace(index, output);
    reportResults();
}

void Sweep::reportResults()
{
    while (!m_stopping && m_waiting.count(m_nextResult) != 0) {
        const EngineOutput output = m_waiting.at(m_nextResult);
        m_waiting.erase(m_nextResult);
        Q_EMIT solved(m_nextResult++, output);
    }
    if (m_stopping) {
        return;
    }
    if (m_nextResult == m_deck.count()) {
        m_stopping = true;
        Q_EMIT ended(true);
        return;
    }
    startJobs();
}

void Sweep::fail(int index, const QString& reason)
{
    if (!m_stopping) {
        Q_EMIT failed(frequencyError(m_deck.frequency(index), reason));
    }
    stop();
}

void Sweep::endStopped()
{
    m_folder.remove();
    Q_EMIT ended(false);
}

} // namespace suite
