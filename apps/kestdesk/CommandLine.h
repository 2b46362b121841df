// SPDX-License-Identifier: MIT
#pragma once

#include <ApplicationDescription.h>

/// kestdesk's command line.
namespace CommandLine {

ApplicationDescription application();

} // namespace CommandLine
