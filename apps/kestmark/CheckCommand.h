// SPDX-License-Identifier: MIT
#pragma once

class SubcommandWords;

/// "kestmark check": reads a component's output and explains it. Returns the exit code: 0 when
/// there is nothing to remark, 1 with remarks, 2 when the output could not be read.
int checkOutput(const SubcommandWords& words);
