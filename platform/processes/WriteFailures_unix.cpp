// SPDX-License-Identifier: MIT
#include "WriteFailures.h"

#include <csignal>
#include <initializer_list>

void WriteFailures::report()
{
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        std::signal(signal, SIG_IGN);
    }
}
