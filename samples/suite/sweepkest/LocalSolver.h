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

    /// Sets what is to be solved; nothing can be queued before.
    void setUp(const suite::SweepDeck& deck, suite::Priority priority);

    /// How many frequencies there are.
    [[nodiscard]] int count() const { return m_deck.count(); }

    /// Frequencies that come while one is solved wait.
    void queue(int index);

    /// Removes the folder, when nothing is solved any more.
    void clear() { m_folder.reset(); }

    /// Ends the engine and removes the folder; emits stopped().
    void stop();

Q_SIGNALS:
    /// The error is empty when the output can be used.
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
    int m_index = -1; ///< what is solved at the moment
    bool m_isStopping = false;
};
