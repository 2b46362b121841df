// SPDX-License-Identifier: MIT
#include "FakeProcess.h"

#include "crashCode.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <windows.h>

// What the C library makes of Ctrl+Break.
const int FakeProcess::stopSignal = SIGBREAK;

namespace {

constexpr const char* stubbornWord = "--stubborn-child";
constexpr const char* detachedWord = "--detached-child";

HANDLE stopEvent = nullptr;

BOOL WINAPI noteStop(DWORD event)
{
    return event == CTRL_BREAK_EVENT && SetEvent(stopEvent);
}

void say(const char* line)
{
    std::printf("%s\n", line);
    std::fflush(stdout);
}

// This program once more. A test of what a child does is none without it.
void start(const std::string& words, bool isDetached)
{
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command = '"' + std::string(program) + "\" " + words;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const DWORD flags = isDetached ? CREATE_NEW_PROCESS_GROUP | CREATE_NO_WINDOW : 0;
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, !isDetached, flags, nullptr,
                        nullptr, &startup, &process)) {
        std::fprintf(stderr, "no child (error %lu)\n", GetLastError());
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace

void FakeProcess::waitForEver()
{
    for (;;) {
        Sleep(INFINITE);
    }
}

void FakeProcess::sleepFor(int milliseconds)
{
    Sleep(static_cast<DWORD>(milliseconds));
}

void FakeProcess::waitForStop()
{
    stopEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(noteStop, TRUE);
    say("up");
    WaitForSingleObject(stopEvent, INFINITE);
}

void FakeProcess::startStubbornChild()
{
    start(stubbornWord, false);
}

void FakeProcess::startDetachedChild(const char* file)
{
    start(detachedWord + std::string(file ? " \"" : "") + (file ? file : "") + (file ? "\"" : ""),
          true);
}

void FakeProcess::die(int signal)
{
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(crashCode(signal)));
}

void FakeProcess::playChild(int argumentCount, char* arguments[])
{
    const std::string word = argumentCount > 1 ? arguments[1] : "";
    if (word == stubbornWord) {
        std::signal(SIGBREAK, SIG_IGN);
        say("child");
        waitForEver();
    }
    if (word != detachedWord) {
        return;
    }
    if (argumentCount < 3) {
        waitForEver();
    }
    sleepFor(333);
    std::ofstream(arguments[2]).flush();
    std::_Exit(0);
}
