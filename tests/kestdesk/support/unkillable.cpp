// SPDX-License-Identifier: MIT
// Preloaded into a program: what it kills goes on, as a process does that waits for a device. The
// request to end still works.
#include <csignal>

#include <sys/syscall.h>
#include <unistd.h>

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's are reserved
extern "C" int kill(pid_t process, int signal) noexcept
{
    return signal == SIGKILL ? 0 : static_cast<int>(syscall(SYS_kill, process, signal));
}
