#include "GroupedProcess.h"

GroupedProcess::~GroupedProcess()
{
    killGroup();
}

void GroupedProcess::killGroup()
{
    if (state() != NotRunning) {
        kill();
        waitForFinished();
    }
}

void GroupedProcess::setupChildProcess()
{}
