#ifndef ENDREASONS_H
#define ENDREASONS_H

#include <QString>

/// What the endings of a process usually mean on this platform.
namespace EndReasons {

struct Reason
{
    bool isCrash; ///< whether the code is a signal's or an exception's, or else an exit code
    int code;
    const char* name;    ///< of the signal or exception; empty for exit codes
    const char* meaning; ///< a clause
    bool isRequest;      ///< somebody asked the process to end
};

/// Null when there is nothing to say.
const Reason* find(bool isCrash, int code);

/// How the platform writes the number of a signal or exception: "signal 9".
QString crashNumber(int code);

} // namespace EndReasons

#endif
