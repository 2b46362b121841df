#include "EndReasons.h"

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

// clang-format off
constexpr EndReasons::Reason reasons[] = {
    {true,  SIGHUP,  "SIGHUP",  "its terminal or session was closed", true},
    {true,  SIGINT,  "SIGINT",  "somebody interrupted it, as Ctrl+C does", true},
    {true,  SIGTERM, "SIGTERM", "somebody asked it to end: a user, the system as it shuts down, or the time limit of a job scheduler", true},
    {true,  SIGKILL, "SIGKILL", "usually the system ran out of memory, or an administrator or a job scheduler killed it", false},
    {true,  SIGQUIT, "SIGQUIT", "somebody ended it, as Ctrl+\\ does", false},
    {true,  SIGSEGV, "SIGSEGV", "it used memory that it does not have, which is a fault of the program", false},
    {true,  SIGBUS,  "SIGBUS",  "usually a disk or the shared memory is full, or a file that it used was cut", false},
    {true,  SIGABRT, "SIGABRT", "it gave up because of an error that it could not handle", false},
    {true,  SIGFPE,  "SIGFPE",  "a calculation was impossible, such as a division of an integer by zero", false},
    {true,  SIGILL,  "SIGILL",  "usually it was built for another processor", false},
    {true,  SIGSYS,  "SIGSYS",  "it was not allowed to call the system", false},
    {true,  SIGTRAP, "SIGTRAP", "it stopped for a debugger that is not there", false},
    {true,  SIGPIPE, "SIGPIPE", "nobody read what it wrote any more", false},
    {true,  SIGXCPU, "SIGXCPU", "it used up the processor time that it is allowed (ulimit -t)", false},
    {true,  SIGXFSZ, "SIGXFSZ", "it wrote a file larger than it is allowed (ulimit -f)", false},
    {true,  SIGALRM, "SIGALRM", "a time limit of its own passed", false},
    {false, 126,     "",        "a program that it needs could not be executed", false},
    {false, 127,     "",        "a program or a library that it needs was not found", false},
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
