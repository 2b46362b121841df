// SPDX-License-Identifier: MIT
#include "EndReasons.h"

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

// clang-format off
constexpr EndReasons::Reason reasons[] = {
    {"SIGHUP",  "its terminal or session was closed",                                                                  SIGHUP,  true,  true},
    {"SIGINT",  "somebody interrupted it, as Ctrl+C does",                                                             SIGINT,  true,  true},
    {"SIGTERM", "somebody asked it to end: a user, the system as it shuts down, or the time limit of a job scheduler", SIGTERM, true,  true},
    {"SIGKILL", "usually the system ran out of memory, or an administrator or a job scheduler killed it",              SIGKILL, true,  false},
    {"SIGQUIT", "somebody ended it, as Ctrl+\\ does",                                                                  SIGQUIT, true,  false},
    {"SIGSEGV", "it used memory that it does not have, which is a fault of the program",                               SIGSEGV, true,  false},
    {"SIGBUS",  "usually a disk or the shared memory is full, or a file that it used was cut",                         SIGBUS,  true,  false},
    {"SIGABRT", "it gave up because of an error that it could not handle",                                             SIGABRT, true,  false},
    {"SIGFPE",  "a calculation was impossible, such as a division of an integer by zero",                              SIGFPE,  true,  false},
    {"SIGILL",  "usually it was built for another processor",                                                          SIGILL,  true,  false},
    {"SIGSYS",  "it was not allowed to call the system",                                                               SIGSYS,  true,  false},
    {"SIGTRAP", "it stopped for a debugger that is not there",                                                         SIGTRAP, true,  false},
    {"SIGPIPE", "nobody read what it wrote any more",                                                                  SIGPIPE, true,  false},
    {"SIGXCPU", "it used up the processor time that it is allowed (ulimit -t)",                                        SIGXCPU, true,  false},
    {"SIGXFSZ", "it wrote a file larger than it is allowed (ulimit -f)",                                               SIGXFSZ, true,  false},
    {"SIGALRM", "a time limit of its own passed",                                                                      SIGALRM, true,  false},
    {"",        "a program that it needs could not be executed",                                                       126,     false, false},
    {"",        "a program or a library that it needs was not found",                                                  127,     false, false},
};
// clang-format on

} // namespace

const EndReasons::Reason* EndReasons::find(bool isCrash, int code)
{
    const auto* const found =
        std::find_if(std::cbegin(reasons), std::cend(reasons), [isCrash, code](const Reason& row) {
            return row.isCrash == isCrash && row.code == code;
        });
    return found == std::cend(reasons) ? nullptr : found;
}

QString EndReasons::crashNumber(int code)
{
    return QStringLiteral("signal %1").arg(code);
}
