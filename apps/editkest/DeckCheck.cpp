// SPDX-License-Identifier: MIT
#include "DeckCheck.h"

#include <Preprocessor.h>

#include <QtConcurrentRun>

namespace {

constexpr int quietTime = 150; // ms

QVector<suite::Finding> check(const QByteArray& deck)
{
    return suite::Preprocessor(deck).findings().sorted();
}

} // namespace

DeckCheck::DeckCheck(QObject* parent) : QObject(parent)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietTime);
    connect(&m_quiet, &QTimer::timeout, this, &DeckCheck::start);
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &DeckCheck::tell);
}

DeckCheck::~DeckCheck()
{
    m_watcher.waitForFinished();
}

void DeckCheck::request(const QByteArray& deck)
{
    m_deck = deck;
    m_isOutdated = true;
    m_quiet.start();
}

// One check at a time: the next one starts when it has ended.
void DeckCheck::start()
{
    if (!m_watcher.isRunning()) {
        m_isOutdated = false;
        m_watcher.setFuture(QtConcurrent::run(check, m_deck));
    }
}

void DeckCheck::tell()
{
    if (m_isOutdated) {
        m_quiet.start();
    } else {
        Q_EMIT checked(m_watcher.result());
    }
}
