#include "StopSignals.h"

#include <csignal>

// A program that was started by nohup outlives its terminal.
QVector<int> StopSignals::all()
{
    QVector<int> result = {SIGINT, SIGTERM};
    struct sigaction hangUp = {};
    if (sigaction(SIGHUP, nullptr, &hangUp) == 0 && hangUp.sa_handler != SIG_IGN) {
        result.append(SIGHUP);
    }
    return result;
}
