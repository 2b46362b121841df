// SPDX-License-Identifier: MIT
// Loaded before the C library: plays a system that runs out of processes, and one whose signals
// interrupt. FAILING_PROCESSES says which call fails, and how.
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool plays(const char* part)
{
    const char* const chosen = std::getenv("FAILING_PROCESSES");
    return chosen != nullptr && std::strcmp(chosen, part) == 0;
}

int fail(int error)
{
    errno = error;
    return -1;
}

} // namespace

extern "C" pid_t fork()
{
    using Function = pid_t (*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "fork"));
    return plays("no process") ? fail(EAGAIN) : real();
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's are reserved
extern "C" pid_t waitpid(pid_t process, int* status, int options)
{
    using Function = pid_t (*)(pid_t, int*, int);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "waitpid"));
    static int calls = 0;
    if (plays("interrupted") && ++calls <= 3) {
        return fail(EINTR);
    }
    return plays("no child") ? fail(ECHILD) : real(process, status, options);
}
