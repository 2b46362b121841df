// SPDX-License-Identifier: MIT
// Loaded before the C library: plays a network that does not answer. Whoever looks at a file whose
// path has "/silent/" in it waits for ever.
#include <cstring>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void waitFor(const char* path)
{
    while (path && std::strstr(path, "/silent/")) {
        sleep(1000);
    }
}

template <class Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's are reserved
extern "C" int access(const char* path, int mode) noexcept
{
    waitFor(path);
    return real<int(const char*, int)>("access")(path, mode);
}

extern "C" int stat(const char* path, struct stat* status) noexcept
{
    waitFor(path);
    return real<int(const char*, struct stat*)>("stat")(path, status);
}

extern "C" int lstat(const char* path, struct stat* status) noexcept
{
    waitFor(path);
    return real<int(const char*, struct stat*)>("lstat")(path, status);
}

extern "C" int statx(int folder, const char* path, int flags, unsigned int mask,
                     struct statx* status) noexcept
{
    waitFor(path);
    return real<int(int, const char*, int, unsigned int, struct statx*)>("statx")(
        folder, path, flags, mask, status);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
