#include "ParallelRuns.h"

QString suite::ParallelRuns::obstacle()
{
    return QString();
}
