// SPDX-License-Identifier: MIT
#include "KeptConsole.h"

KeptConsole::KeptConsole() = default;

void KeptConsole::restore() const
{}

void KeptConsole::leaveUnshared()
{}
