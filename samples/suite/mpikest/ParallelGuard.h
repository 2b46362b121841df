#pragma once

#include "ChildProcess.h"

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

/// Stands between a component and mpiexec, so that the processes of the parallel runtime end in
/// good order even when the component is killed: passes both ways what they say to each other, and
/// ends mpiexec when the component is gone.
class ParallelGuard : public QObject
{
    Q_OBJECT

public:
    ParallelGuard();

    void start(const QString& program, const QStringList& arguments);

    /// Ends mpiexec: closes its input, which its first process takes as the request to stop
    /// everything, and uses force when that does not help.
    void stop();

Q_SIGNALS:
    void finished(int exitCode);

private:
    void passOnInput();
    void passOnOutput();
    void watchEnd();
    void finish(int exitCode);

    suite::ChildProcess m_process;
    QSocketNotifier m_input;
    QTimer m_endWatch;
    QElapsedTimer m_clock;
    std::size_t m_step = 0;
    bool m_hasPrinted = false;
    bool m_isFinished = false;
};
