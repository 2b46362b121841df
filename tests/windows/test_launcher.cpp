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

#include <windows.h>

#include <tlhelp32.h>

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

// "ID NAME" of each process in the job, for messages.
void printProcessesIn(HANDLE job)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more;
         more = Process32NextW(snapshot, &entry)) {
        const HANDLE process =
            OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID);
        BOOL isIn = FALSE;
        if (process && IsProcessInJob(process, job, &isIn) && isIn) {
            std::fprintf(stderr, "test_launcher: %lu %ls is left behind\n", entry.th32ProcessID,
                         entry.szExeFile);
        }
        CloseHandle(process);
    }
    CloseHandle(snapshot);
}

DWORD processesIn(HANDLE job)
{
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts = {};
    QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &counts, sizeof counts,
                              nullptr);
    return counts.ActiveProcesses;
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
    for (DWORD waited = 0; processesIn(job) > 0 && waited < timeToEnd; waited += pause) {
        Sleep(pause);
    }
    if (processesIn(job) > 0) {
        printProcessesIn(job);
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
