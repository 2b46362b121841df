// SPDX-License-Identifier: MIT
#include "SweepRank.h"

using namespace suite;

SweepRank::SweepRank(MpiLink& link, int partners) : m_link(link), m_heartbeat(partners)
{
    connect(&m_solver, &LocalSolver::stopped, this, &SweepRank::stopped);
    m_heartbeat.start();
}

SweepRank::~SweepRank() = default;

void SweepRank::stop()
{
    if (!m_isStopping) {
        m_isStopping = true;
        m_heartbeat.stop();
        m_solver.stop();
    }
}

void SweepRank::stopAlone()
{
    m_isAbandoned = true;
    stop();
}

void SweepRank::finish()
{
    m_heartbeat.stop();
    m_solver.clear();
    Q_EMIT finished();
}

QString SweepRank::setUp(const Frame& frame)
{
    qint32 protocol = 0;
    qint32 level = 0;
    SweepDeck deck;
    if (!frame.read(protocol, deck, level) || protocol != frameProtocol) {
        return QStringLiteral("has another version of the installation");
    }
    const Priority priority(qBound(0, static_cast<int>(level), 4));
    m_solver.setUp(deck, priority);
    return priority.isAllowed() ? QString()
                                : QStringLiteral("the engines' priority cannot be raised, "
                                                 "the permission is missing");
}
