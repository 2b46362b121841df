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
    /// A host's name for each place; the options are runkest's.
    EvaluationFarm(QStringList hosts, QStringList options);

    [[nodiscard]] int placeCount() const { return m_hosts.size(); }
    [[nodiscard]] QString host(int place) const { return m_hosts.at(place); }

    /// Starts a run of a model's file on a place that is free.
    void start(int place, int run, const QString& model);

    /// Ends all runs; of the signals only ended() follows. May be called more than once.
    void stop();

Q_SIGNALS:
    /// The progress of a run.
    void progressed(int run, int percentage);

    /// A run has succeeded on its host; its results are beside its model.
    void succeeded(int run, const QString& host);

    /// A run has failed on its host for this reason.
    void failed(int run, const QString& host, const QString& reason);

    /// No run is left after stop().
    void ended();

private:
    void finishRun(int run, const QString& host);

    QStringList m_hosts;
    QStringList m_options;
    ChildProcesses m_processes;
    bool m_isStopping = false;
};
