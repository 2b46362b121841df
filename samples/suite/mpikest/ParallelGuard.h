// SPDX-License-Identifier: MIT
#pragma once

#include <ChildProcess.h>
#include <DescendantsEnding.h>
#include <StagedEnd.h>

#include <QSocketNotifier>

/// Runs between a component and mpiexec, so that the processes of the parallel runtime end properly
/// even if the component is killed: forwards the data of both, ends mpiexec when the component has
/// ended, and then the processes that mpiexec has left behind.
class ParallelGuard : public QObject
{
    Q_OBJECT

public:
    ParallelGuard();

    void start(const QString& program, const QStringList& arguments);

    /// Ends mpiexec: closes its input, which its first process takes as the request to stop
    /// everything, and kills it if that does not help.
    void stop();

Q_SIGNALS:
    void finished(int exitCode);

private:
    void passOnInput();
    void passOnOutput(const QByteArray& bytes);
    void terminate();
    void finish(int exitCode);

    ChildProcess m_process;
    QSocketNotifier m_input;
    StagedEnd m_end;
    StopTimes m_stopTimes;
    DescendantsEnding m_leftovers;
    int m_exitCode = 0;
    bool m_isTerminated = false;
    bool m_isFinished = false;
};
