// SPDX-License-Identifier: MIT
#include "SshProgram.h"

namespace suite {

namespace {

// Exit codes of ssh itself, and of the shell at the other end.
constexpr int connectionFailed = 255;
constexpr int commandMissing = 127;

} // namespace

QStringList SshProgram::options()
{
    QStringList result;
    for (const char* option : {"BatchMode=yes", "ConnectTimeout=5", "ServerAliveInterval=1",
                               "ServerAliveCountMax=4", "ForwardX11=no", "ForwardAgent=no"}) {
        result += {QStringLiteral("-o"), QLatin1String(option)};
    }
    return result;
}

QString SshProgram::advice(int exitCode)
{
    switch (exitCode) {
    case connectionFailed:
        return QStringLiteral(", ssh must reach it by this name and log in with a key, without a "
                              "question");
    case commandMissing:
        return QStringLiteral(", name the folder of the installation there with home=FOLDER");
    default:
        return {};
    }
}

} // namespace suite
