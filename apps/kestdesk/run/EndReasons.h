// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What exit codes and signals (on Windows: exceptions) usually mean on this platform.
namespace EndReasons {

struct Reason
{
    const char* name;    ///< of the signal or exception; empty for exit codes
    const char* meaning; ///< a clause
    int code;
    bool isCrash;        ///< the code is a signal or an exception, not an exit code
    bool isRequest;      ///< the process was asked to end
    bool isDeed = false; ///< the name is what was done to the process, not what ended it: "killed"
};

/// The row for the code; null if there is none.
const Reason* find(bool isCrash, int code);

/// How the platform writes the number of a signal or exception: "signal 9".
QString crashNumber(int code);

} // namespace EndReasons
