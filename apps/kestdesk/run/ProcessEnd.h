#pragma once

#include <QString>

class common_ProcessRunnerBase;

/// How a process ended, and what that usually means.
class ProcessEnd
{
public:
    /// The code is the exit code, or after a crash the number of the signal or exception.
    ProcessEnd(bool isCrash, int code) : m_isCrash(isCrash), m_code(code) {}

    /// Of the runner's last child.
    static ProcessEnd of(const common_ProcessRunnerBase& runner);

    /// By itself, with exit code 0.
    bool isGood() const { return !m_isCrash && m_code == 0; }

    /// Whether somebody had asked it to end.
    bool isRequested() const;

    /// Such as "SIGKILL" or "exit code 3"; empty when it ended well.
    QString name() const;

    /// Such as "was ended by SIGKILL (signal 9): usually ..."; empty when it ended well.
    QString text() const;

private:
    bool m_isCrash;
    int m_code;
};
