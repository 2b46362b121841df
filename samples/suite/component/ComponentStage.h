// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentRun.h"

#include <ChildProcesses.h>

namespace suite {

/// A stage of a component's work that runs another component.
class ComponentStage : public QObject
{
    Q_OBJECT

public:
    /// The time limits for ending it, longer than the other component needs to end its own
    /// processes.
    explicit ComponentStage(StopTimes times);

    /// Starts a component of this installation.
    void start(const QString& name, const QStringList& arguments);

    /// Ends it and all its processes; emits ended(). May be called more than once.
    void stop();

    /// Whether the other component has succeeded.
    [[nodiscard]] bool isSuccess() const { return m_isSuccess; }
    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }

Q_SIGNALS:
    /// A line was printed. Also emitted after stop(): the caller decides which lines to show then.
    void printed(const suite::MarkerLine& line);

    /// The other component has ended. Emitted once.
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
