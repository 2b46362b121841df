// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace suite {

/// Calls the program that reaches other hosts, such that it never asks questions, and gives up if a
/// host does not answer.
class SshProgram
{
public:
    static QStringList options();

    /// What helps after an exit code of ssh, as the end of a sentence; empty for other codes.
    static QString advice(int exitCode);
};

} // namespace suite
