#pragma once

#include <QString>

/// What the endings of a process usually mean on this platform.
namespace EndReasons {

struct Reason
{
    const char* name;    ///< of the signal or exception; empty for exit codes
    const char* meaning; ///< a clause
    int code;
    bool isCrash;   ///< whether the code is a signal's or an exception's, or else an exit code
    bool isRequest; ///< somebody asked the process to end
};

/// Null when there is nothing to say.
const Reason* find(bool isCrash, int code);

/// How the platform writes the number of a signal or exception: "signal 9".
QString crashNumber(int code);

} // namespace EndReasons
