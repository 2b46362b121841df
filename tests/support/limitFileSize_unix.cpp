// SPDX-License-Identifier: MIT
#include "limitFileSize.h"

#include <csignal>

#include <sys/resource.h>

bool limitFileSize(quint64 bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, bytes};
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}
