// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

#include <array>
#include <csignal>
#include <optional>

/// Starts a program in a child process that ends with this process.
///
/// Signals that this program handles or ignores have their default actions in the new program.
struct ProgramStart
{
    enum class Group {
        Same,   ///< this process's
        Own,    ///< a new one, which the process leads
        Session ///< a new one without a terminal
    };

    /// The id of the process; on failure the error number (errno).
    struct Result
    {
        qint64 process = 0;
        int error = 0;
    };

    static constexpr int inherited = -1;

    /// The program, which is looked up in PATH if its name has no "/", and its arguments.
    QVector<QByteArray> words;

    QByteArray folder; ///< the working folder; empty: this process's

    /// The descriptors that become standard input, output and error.
    std::array<int, 3> channels = {inherited, inherited, inherited};

    Group group = Group::Own;

    /// The signal that the process receives when the thread that started it ends in any way; 0:
    /// none.
    int deathSignal = SIGKILL;

    std::optional<int> niceValue; ///< none: this process's

    /// Starts the program. Returns as soon as it runs or has failed to start.
    [[nodiscard]] Result start() const;
};
