#pragma once

#include "ComponentRun.h"

#include <ChildProcesses.h>

namespace suite {

/// A part of a component's work that another component does.
class ComponentStage : public QObject
{
    Q_OBJECT

public:
    /// How long its end may take: more than the other component needs to end its own processes.
    explicit ComponentStage(StopTimes times);

    /// Starts a component of this installation.
    void start(const QString& name, const QStringList& arguments);

    /// Ends it and all its processes; emits ended(). May be called more than once.
    void stop();

    /// How it ended.
    [[nodiscard]] bool isSuccess() const { return m_isSuccess; }
    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }

Q_SIGNALS:
    /// A line was printed, also after stop(): what of it the user is to see then is the caller's.
    void printed(const suite::MarkerLine& line);

    /// Nothing runs any more. Emitted once.
    void ended();

private:
    void finish();

    ChildProcesses m_processes;
    ComponentRun* m_run = nullptr; ///< owned by m_processes
    QString m_error;
    int m_exitCode = 0;
    bool m_isSuccess = false;
    bool m_isStopping = false;
};

} // namespace suite
