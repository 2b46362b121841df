// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QStringList>

/// Another process that uses the same settings files: kest_settings_process with a command.
class SettingsProcess : public QProcess
{
public:
    explicit SettingsProcess(const QStringList& command)
    {
        start(QStringLiteral(KEST_SETTINGS_PROCESS), command);
    }

    /// Ends with the test that began it.
    ~SettingsProcess() override
    {
        kill();
        waitForFinished();
    }

    SettingsProcess(const SettingsProcess&) = delete;
    SettingsProcess& operator=(const SettingsProcess&) = delete;

    /// The next line that it says, without its end; empty when it says no more.
    QString said()
    {
        while (!canReadLine() && waitForReadyRead(patience)) {
        }
        return QString::fromUtf8(readLine()).trimmed();
    }

    /// Whether it ended well by itself.
    bool hasEndedWell()
    {
        return (state() == NotRunning || waitForFinished(patience)) && exitStatus() == NormalExit &&
               exitCode() == 0;
    }

    /// Lets a process end that waits for the end of its input.
    bool end()
    {
        closeWriteChannel();
        return hasEndedWell();
    }

    /// Ends it as kill -9 does.
    bool killAtOnce()
    {
        kill();
        return waitForFinished(patience);
    }

private:
    static constexpr int patience = 120000; // milliseconds
};
