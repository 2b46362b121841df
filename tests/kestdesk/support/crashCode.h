// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

/// What QProcess takes for the code of a process that the fake component ends by this signal: the
/// number, or on Windows that of the exception that corresponds to it.
inline int crashCode(int signal)
{
#ifdef _WIN32
    constexpr unsigned killed = 0xF291; // as by QProcess::kill()
    constexpr unsigned accessViolation = 0xC0000005;
    constexpr unsigned controlCExit = 0xC000013A;
    if (signal == SIGSEGV) {
        return static_cast<int>(accessViolation);
    }
    return static_cast<int>(signal == SIGINT || signal == SIGTERM ? controlCExit : killed);
#else
    return signal;
#endif
}
