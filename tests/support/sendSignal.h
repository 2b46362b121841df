// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>

/// Sends a signal to a process, and returns whether there is such a process. Qt gives 0 as the id
/// of a process that has ended: the system would send the signal to this test and all around it.
inline bool sendSignal(qint64 process, int signal)
{
    return process > 0 && ::kill(static_cast<pid_t>(process), signal) == 0;
}
