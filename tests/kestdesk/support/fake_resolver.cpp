// SPDX-License-Identifier: MIT
// Loaded before the C library: plays the network's names. "node..." are there, "lost..." are asked
// for in vain and for ever, and "unknown..." do not exist. All other names are left to the system.
#include <cstring>

#include <dlfcn.h>
#include <netdb.h>
#include <unistd.h>

namespace {

bool begins(const char* text, const char* beginning)
{
    return text && std::strncmp(text, beginning, std::strlen(beginning)) == 0;
}

} // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's are reserved
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints,
                           addrinfo** result)
{
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    while (begins(name, "lost")) {
        sleep(1000);
    }
    if (begins(name, "unknown")) {
        return EAI_NONAME;
    }
    return real(begins(name, "node") ? "127.0.0.2" : name, service, hints, result);
}
