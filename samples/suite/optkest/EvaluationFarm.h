// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentRun.h"

#include <ChildProcesses.h>

#include <QObject>
#include <QStringList>

/// Runs evaluations with runkest, several at once. Each of its places belongs to a host.
class EvaluationFarm : public QObject
{
    Q_OBJECT

public:
    /// Takes the host of each place, and the options for runkest.
    EvaluationFarm(QStringList hosts, QStringList options);

    [[nodiscard]] int placeCount() const { return m_hosts.size(); }
    [[nodiscard]] QString host(int place) const { return m_hosts.at(place); }

    /// Starts a run of a model's file on a free place.
    void start(int place, int run, const QString& model);

    /// Ends all runs; only ended() is emitted from then on. May be called more than once.
    void stop();

Q_SIGNALS:
    /// The progress of a run.
    void progressed(int run, int percentage);

    /// A run has succeeded on its host; its results are beside its model.
    void succeeded(int run, const QString& host);

    /// A run has failed on its host for this reason.
    void failed(int run, const QString& host, const QString& reason);

    /// After stop(), all runs have ended.
    void ended();

private:
    void finishRun(int run, const QString& host);

    QStringList m_hosts;
    QStringList m_options;
    ChildProcesses m_processes;
    bool m_isStopping = false;
};
