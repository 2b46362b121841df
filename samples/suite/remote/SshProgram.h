#pragma once

#include <QStringList>

namespace suite {

/// How the program that reaches other hosts is called: never asking for anything, and giving up on
/// a host that does not answer.
class SshProgram
{
public:
    static QStringList options();
};

} // namespace suite
