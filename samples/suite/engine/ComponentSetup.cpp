#include "ComponentSetup.h"

#include <csignal>
#include <initializer_list>

namespace suite {

void setupComponent()
{
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        std::signal(signal, SIG_IGN);
    }
}

} // namespace suite
