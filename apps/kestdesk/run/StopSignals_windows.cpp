#include "StopSignals.h"

#include <csignal>

QVector<int> StopSignals::all()
{
    return {SIGINT, SIGTERM};
}
