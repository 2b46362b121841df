// SPDX-License-Identifier: MIT
// test_launcher [NAME=VALUE]... -- PROGRAM [ARGUMENT]...: runs a test with these variables, which
// Wine would keep to itself or replace: those of Qt, and the folders for temporary files and of the
// user.
//
// Kills the processes that the test has left behind, and fails then. The exit code is 0 or 1,
// because Wine cuts others to eight bits; others are printed.
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

#include <windows.h>

namespace {

constexpr DWORD timeToEnd =
    10000;                   // milliseconds, for processes that are about to end by themselves
constexpr DWORD pause = 100; // milliseconds

// The rest of the command line as it is, so that no quotes have to be set again.
std::wstring programPart()
{
    const std::wstring line = GetCommandLineW();
    const std::size_t mark = line.find(L" -- ");
    return mark == std::wstring::npos ? std::wstring() : line.substr(mark + 4);
}

void setVariables(int count, wchar_t* words[])
{
    for (int i = 1; i < count && std::wcscmp(words[i], L"--") != 0; ++i) {
        wchar_t* const value = std::wcschr(words[i], L'=');
        if (value) {
            *value = L'\0';
            SetEnvironmentVariableW(words[i], value + 1);
        }
    }
}

HANDLE makeJob()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

// The path of the program that a process runs; empty when it has ended.
std::wstring programOf(DWORD id)
{
    wchar_t path[1024] = L"";
    DWORD size = 1024;
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (process) {
        QueryFullProcessImageNameW(process, 0, path, &size);
        CloseHandle(process);
    }
    return path;
}

// The system's own programs, such as the desktop, which Wine starts for the first that needs them.
bool isOfTheSystem(const std::wstring& program)
{
    wchar_t folder[MAX_PATH] = L"";
    const UINT length = GetWindowsDirectoryW(folder, MAX_PATH);
    return _wcsnicmp(program.c_str(), folder, length) == 0;
}

// The programs that the test has started and that still run.
std::vector<std::wstring> programsIn(HANDLE job)
{
    constexpr std::size_t most = 100;
    struct
    {
        JOBOBJECT_BASIC_PROCESS_ID_LIST list;
        ULONG_PTR more[most];
    } ids = {};
    QueryInformationJobObject(job, JobObjectBasicProcessIdList, &ids, sizeof ids, nullptr);
    std::vector<std::wstring> result;
    for (DWORD i = 0; i < ids.list.NumberOfProcessIdsInList; ++i) {
        const std::wstring program = programOf(static_cast<DWORD>(ids.list.ProcessIdList[i]));
        if (!program.empty() && !isOfTheSystem(program)) {
            result.push_back(program);
        }
    }
    return result;
}

int fail(const char* what)
{
    std::fprintf(stderr, "test_launcher: %s (error %lu)\n", what, GetLastError());
    return EXIT_FAILURE;
}

int run(std::wstring command)
{
    const HANDLE job = makeJob();
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &process)) {
        return fail("cannot start the test");
    }
    if (!AssignProcessToJobObject(job, process.hProcess)) {
        TerminateProcess(process.hProcess, EXIT_FAILURE);
        return fail("cannot watch the test");
    }
    ResumeThread(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = EXIT_FAILURE;
    GetExitCodeProcess(process.hProcess, &code);
    if (code != 0) {
        std::fprintf(stderr, "test_launcher: exit code 0x%lx\n", code);
    }
    for (DWORD waited = 0; !programsIn(job).empty() && waited < timeToEnd; waited += pause) {
        Sleep(pause);
    }
    for (const std::wstring& program : programsIn(job)) {
        std::fprintf(stderr, "test_launcher: left behind: %ls\n", program.c_str());
        code = EXIT_FAILURE;
    }
    CloseHandle(job);
    return code == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main()
{
    const std::wstring command = programPart();
    if (command.empty()) {
        return fail("no program is named");
    }
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    setVariables(count, words);
    return run(command);
}
