// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class common_ProcessRunnerBase;

/// How a process ended, and what that usually means.
class ProcessEnd
{
public:
    /// The code is the exit code, or after a crash the number of the signal or exception.
    ProcessEnd(bool isCrash, int code) : m_isCrash(isCrash), m_code(code) {}

    /// The end of the runner's last child.
    static ProcessEnd of(const common_ProcessRunnerBase& runner);

    /// Whether the process ended by itself, with exit code 0.
    bool isGood() const { return !m_isCrash && m_code == 0; }

    /// Whether the signal or exit code shows that the process was asked to end.
    bool isRequested() const;

    /// The signal or exit code: "SIGKILL", "exit code 3"; empty if the process ended well.
    QString name() const;

    /// The end as a clause: "was ended by SIGKILL (signal 9): usually ..."; empty if the process
    /// ended well.
    QString text() const;

private:
    bool m_isCrash;
    int m_code;
};
