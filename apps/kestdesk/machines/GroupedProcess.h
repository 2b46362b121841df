#pragma once

#include <QProcess>

/// A child process without a terminal, that can be killed together with all that it starts.
class GroupedProcess : public QProcess
{
    Q_OBJECT

public:
    ~GroupedProcess() override;

    /// Kills and waits for the end. Nothing when it is not running.
    void killGroup();

protected:
    void setupChildProcess() override;
};
