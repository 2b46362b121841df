#pragma once

#include <QStringList>

namespace suite {

/// How the program that reaches other hosts is called: never asking for anything, and giving up on
/// a host that does not answer.
class SshProgram
{
public:
    static QStringList options();

    /// What helps after an exit code of ssh, as the end of a sentence; empty for other codes.
    static QString advice(int exitCode);
};

} // namespace suite
