// SPDX-License-Identifier: MIT
#include "RemoteServer.h"

#include <cstdio>
#include <cstdlib>

int RemoteServer::serve()
{
    std::fputs("Runs for other hosts are not available on Windows: choose a host with Linux.\n",
               stderr);
    return EXIT_FAILURE;
}
