// SPDX-License-Identifier: MIT
#include "FakeProcess.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

const int FakeProcess::stopSignal = SIGTERM;

namespace {

void say(const char* line)
{
    std::printf("%s\n", line);
    std::fflush(stdout);
}

// A test of what a child does is none without it.
bool isForked()
{
    const pid_t child = fork();
    if (child < 0) {
        std::perror("fork");
        std::_Exit(EXIT_FAILURE);
    }
    return child == 0;
}

} // namespace

void FakeProcess::waitForEver()
{
    for (;;) {
        pause();
    }
}

void FakeProcess::sleepFor(int milliseconds)
{
    constexpr int microseconds = 1000;
    usleep(static_cast<useconds_t>(milliseconds * microseconds));
}

void FakeProcess::waitForStop()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    say("up");
    int received = 0;
    sigwait(&signals, &received);
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

// On a busy machine, the child may be asked to end, or have lost who reads its output, before its
// first instruction.
void FakeProcess::startStubbornChild()
{
    const auto handler = std::signal(SIGTERM, SIG_IGN);
    if (isForked()) {
        std::signal(SIGPIPE, SIG_IGN);
        say("child");
        waitForEver();
    }
    std::signal(SIGTERM, handler);
}

void FakeProcess::startDetachedChild(const char* file)
{
    if (!isForked()) {
        return;
    }
    setsid();
    for (int open = 0; open < 3; ++open) {
        close(open);
    }
    if (!file) {
        waitForEver();
    }
    sleepFor(333);
    close(creat(file, 0600));
    _exit(0);
}

// Whatever the signals do that this process has inherited.
void FakeProcess::die(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void FakeProcess::playChild(int /*argumentCount*/, char* /*arguments*/[])
{}
