#pragma once

#include <ApplicationDescription.h>

/// kestdesk as its command line knows it.
namespace CommandLine {

ApplicationDescription application();

} // namespace CommandLine
