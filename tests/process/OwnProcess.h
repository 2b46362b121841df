// SPDX-License-Identifier: MIT
#pragma once

/// What this process has of the system.
namespace OwnProcess {

/// Its open descriptors, or handles; 0 where the system does not count them.
int openDescriptors();

/// Its child processes; on demand also those that have ended and were not waited for yet.
int children(bool withEnded = true);

} // namespace OwnProcess
