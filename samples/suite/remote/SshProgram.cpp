#include "SshProgram.h"

namespace suite {

QStringList SshProgram::options()
{
    QStringList result;
    for (const char* option : {"BatchMode=yes", "ConnectTimeout=5", "ServerAliveInterval=1",
                               "ServerAliveCountMax=4", "ForwardX11=no", "ForwardAgent=no"}) {
        result += {QStringLiteral("-o"), QLatin1String(option)};
    }
    return result;
}

} // namespace suite
