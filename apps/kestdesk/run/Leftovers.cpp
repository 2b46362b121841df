// SPDX-License-Identifier: MIT
#include "Leftovers.h"

#include "MachinesCopies.h"
#include "ModelLock.h"

#include <MarkedFolders.h>

void Leftovers::remove()
{
    MarkedFolders::removeLeft();
    MachinesCopies(qEnvironmentVariable("KEST_USER_HOME")).removeLeft();
    ModelLock::removeLeft();
}
