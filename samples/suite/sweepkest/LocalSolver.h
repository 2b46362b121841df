// SPDX-License-Identifier: MIT
#pragma once

#include "Priority.h"
#include "SweepDeck.h"

#include <ChildProcesses.h>
#include <TemporaryFolder.h>

#include <deque>
#include <optional>

/// Solves frequencies on this host, one after another.
class LocalSolver : public QObject
{
    Q_OBJECT

public:
    LocalSolver();

    /// Sets the decks to solve. To be called before queue().
    void setUp(const suite::SweepDeck& deck, suite::Priority priority);

    /// The number of frequencies.
    [[nodiscard]] int count() const { return m_deck.count(); }

    /// Solves a frequency after those that were queued before.
    void queue(int index);

    /// Removes the folder. To be called when nothing is being solved.
    void clear() { m_folder.reset(); }

    /// Ends the engine and removes the folder; emits stopped().
    void stop();

Q_SIGNALS:
    /// The error is empty if the output can be used.
    void solved(int index, const QString& error, const QByteArray& output);
    void stopped();

private:
    void startNext();
    void finishJob();
    [[nodiscard]] QString setupError() const;

    suite::SweepDeck m_deck;
    suite::Priority m_priority;
    QString m_engine;
    QString m_engineError;
    std::optional<suite::TemporaryFolder> m_folder;
    ChildProcesses m_processes;
    std::deque<int> m_queue;
    int m_index = -1; ///< the frequency that is being solved; -1 for none
    bool m_isStopping = false;
};
