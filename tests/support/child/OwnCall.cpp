// SPDX-License-Identifier: MIT
#include "OwnCall.h"

#include <algorithm>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

std::vector<std::string> given;
std::filesystem::path program; // without the suffix of programs

} // namespace

#ifdef _WIN32

// The words of main() are in the code page.
void OwnCall::remember(int /*argc*/, char* /*argv*/[])
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        given.push_back(std::filesystem::path(words[i]).u8string());
    }
    LocalFree(words);
    wchar_t path[1024] = L"";
    GetModuleFileNameW(nullptr, path, 1024);
    program = std::filesystem::path(path).replace_extension();
}

#else

void OwnCall::remember(int argc, char* argv[])
{
    given.assign(argv + 1, argv + argc);
    program = argv[0];
}

#endif

const std::vector<std::string>& OwnCall::arguments()
{
    return given;
}

std::string OwnCall::inOneLine()
{
    std::string line;
    for (const std::string& argument : given) {
        line += (line.empty() ? "" : " ") + argument;
    }
    return line;
}

std::string OwnCall::argumentAfter(const std::string& option)
{
    const auto found = std::find(given.begin(), given.end(), option);
    return given.end() - found > 1 ? *(found + 1) : std::string();
}

std::filesystem::path OwnCall::fileBeside(const char* suffix)
{
    return std::filesystem::path(program) += suffix;
}
