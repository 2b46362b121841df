// SPDX-License-Identifier: MIT
#include "ParentProcess.h"

#include "RunningProcesses.h"

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

void ParentProcess::endWithIt()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

bool ParentProcess::isBelow(qint64 process)
{
    qint64 ancestor = ::getppid();
    while (ancestor > 1 && ancestor != process) {
        ancestor = RunningProcesses::parentOf(ancestor);
    }
    return ancestor == process && process > 0;
}
