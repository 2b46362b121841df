#pragma once

#include <QByteArray>
#include <QVector>

#include <array>
#include <csignal>
#include <optional>

/// How a program is started in a process of its own that ends with this one.
///
/// The program gets the usual reactions to the signals that this program handles, or ignores for
/// its writes.
struct ProgramStart
{
    enum class Group {
        Same,   ///< this process's
        Own,    ///< a new one, which the process leads
        Session ///< a new one without a terminal
    };

    /// The id of the process; where none runs the program the number of the error, as errno has it.
    struct Result
    {
        qint64 process = 0;
        int error = 0;
    };

    static constexpr int inherited = -1;

    /// The program, which is looked for in PATH where its name has no "/", and its arguments.
    QVector<QByteArray> words;

    QByteArray folder; ///< the working folder; empty: this process's

    /// The descriptors that become standard input, output and error.
    std::array<int, 3> channels = {inherited, inherited, inherited};

    Group group = Group::Own;

    /// What the process gets when the thread that starts it ends, however that ends and at whatever
    /// moment; 0: nothing.
    int deathSignal = SIGKILL;

    std::optional<int> niceValue; ///< none: this process's

    /// Returns when the program runs.
    [[nodiscard]] Result start() const;
};
