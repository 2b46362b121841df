// SPDX-License-Identifier: MIT
// Loaded before the graphics driver: plays one that crashes, never answers or leaves everything
// black as soon as something is to be drawn. KEST_DRIVER_FAULT is "trial crashes", "trial hangs",
// "trial is black" or "window crashes": the trial is the process that only tries the driver.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include <dlfcn.h>
#include <unistd.h>

namespace {

bool isTrial()
{
    std::ifstream file("/proc/self/cmdline");
    const std::string words{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return words.find("--try-opengl") != std::string::npos;
}

template <typename Function>
Function driverFunction(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// The driver goes on then, but none of its pixels reach a picture.
void discardPixels()
{
    constexpr unsigned rasterizerDiscard = 0x8C89; // as OpenGL numbers it
    driverFunction<void (*)(unsigned)>("glEnable")(rasterizerDiscard);
}

void playFault()
{
    const char* const fault = std::getenv("KEST_DRIVER_FAULT");
    const char* const here = isTrial() ? "trial " : "window ";
    if (fault == nullptr || std::strncmp(fault, here, std::strlen(here)) != 0) {
        return;
    }
    if (std::strstr(fault, "is black") != nullptr) {
        discardPixels();
        return;
    }
    while (std::strstr(fault, "hangs") != nullptr) {
        sleep(1000);
    }
    std::abort();
}

} // namespace

// The types of the window system are not needed to pass them on.
extern "C" int glXMakeCurrent(void* display, unsigned long drawable, void* context)
{
    using Function = int (*)(void*, unsigned long, void*);
    static const auto real = driverFunction<Function>("glXMakeCurrent");
    const int isCurrent = real(display, drawable, context);
    if (context != nullptr) {
        playFault();
    }
    return isCurrent;
}
