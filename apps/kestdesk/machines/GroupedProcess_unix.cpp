#include "GroupedProcess.h"

#include <csignal>

#include <unistd.h>

GroupedProcess::~GroupedProcess()
{
    killGroup();
}

void GroupedProcess::killGroup()
{
    if (state() == NotRunning) {
        return;
    }
    // The group is there as soon as the child has come so far.
    ::kill(-static_cast<pid_t>(processId()), SIGKILL);
    kill();
    waitForFinished();
}

void GroupedProcess::setupChildProcess()
{
    setsid();
}
