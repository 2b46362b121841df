// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentRun.h"
#include "FrameChannel.h"
#include "Heartbeat.h"
#include "PartialTail.h"

#include <ChildProcesses.h>
#include <TemporaryFolder.h>

#include <optional>

/// The other end of a remote run, on the remote host: reads the model from standard input into a
/// temporary folder, runs the solver there and sends its output and files back. Ends everything
/// when the connection ends.
class RemoteSession : public QObject
{
    Q_OBJECT

public:
    RemoteSession();

    /// Ends the run and then the session.
    void stop();

Q_SIGNALS:
    void finished(int exitCode);

private:
    void take(const suite::Frame& frame);
    void begin(const suite::Frame& frame);
    [[nodiscard]] QString prepareFolder(const QString& name, const QByteArray& model,
                                        const QByteArray& machines, const QByteArray& partial);
    void run(const QString& name, QStringList arguments, bool hasMachines);
    void passOn(const suite::MarkerLine& line);
    void sendPartial();
    void endRun();
    void fail(const QString& reason);
    void finishWhenSent();
    void leave(int exitCode);

    suite::FrameChannel m_channel;
    suite::Heartbeat m_heartbeat;
    std::optional<suite::TemporaryFolder> m_folder;
    ChildProcesses m_processes;
    suite::ComponentRun* m_run = nullptr; ///< owned by m_processes
    std::optional<suite::PartialTail> m_partial;
    bool m_isStopping = false;
    bool m_isDone = false;
};
