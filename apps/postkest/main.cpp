// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include <ApplicationStart.h>

int main(int argc, char* argv[])
{
    return ApplicationStart::run(CommandLine::application, argc, argv);
}
