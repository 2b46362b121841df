// SPDX-License-Identifier: MIT
#include "OrphanReaper.h"

// Windows adopts no orphans.
OrphanReaper::OrphanReaper() = default;

void OrphanReaper::start()
{}

void OrphanReaper::reap()
{}
