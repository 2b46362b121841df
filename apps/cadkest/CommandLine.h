// SPDX-License-Identifier: MIT
#pragma once

#include <ApplicationDescription.h>

/// cadkest as its command line knows it.
namespace CommandLine {

ApplicationDescription application();

} // namespace CommandLine
