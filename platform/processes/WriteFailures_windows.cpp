// SPDX-License-Identifier: MIT
#include "WriteFailures.h"

// Writes always fail with an error here.
void WriteFailures::report()
{}
