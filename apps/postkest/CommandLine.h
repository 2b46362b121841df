// SPDX-License-Identifier: MIT
#pragma once

#include <ApplicationDescription.h>

/// postkest as its command line knows it.
namespace CommandLine {

ApplicationDescription application();

} // namespace CommandLine
