// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// Finds the program that solves a deck.
class EngineProgram
{
public:
    EngineProgram();

    /// Absolute path of the program; empty if it is missing.
    [[nodiscard]] QString path() const { return m_path; }

    /// Why the path is empty, and how to solve the problem.
    [[nodiscard]] QString error() const { return m_error; }

private:
    QString m_path;
    QString m_error;
};

} // namespace suite
