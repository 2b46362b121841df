#pragma once

#include <QStringList>

namespace suite {

// How other hosts are reached: the program ssh, or the one that KEST_SSH names, never asking for
// anything and giving up on a host that does not answer.
class SshProgram
{
public:
    static QString path();
    static QStringList options();
};

} // namespace suite
