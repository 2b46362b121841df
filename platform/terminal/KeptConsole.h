// SPDX-License-Identifier: MIT
#pragma once

/// The console of a program that works in it, on Windows. A process runner detaches the application
/// from its console when a child has started: restore() attaches it again.
///
/// Does nothing on Unix, where nothing detaches a program from its terminal.
class KeptConsole
{
public:
    /// Remembers whether there is a console, and which of the standard streams are connected to it.
    KeptConsole();

    /// Attaches the program again to the console of the program that has started it, and opens the
    /// standard streams that were the console. Does nothing while it has a console, or if it had
    /// none.
    void restore() const;

    /// Detaches the program from a console that no other program uses: the system has opened it for
    /// this program, which has a window and does not need it.
    static void leaveUnshared();

private:
    [[maybe_unused]] bool m_hadConsole = false;
    [[maybe_unused]] bool m_wasConsole[3] = {}; ///< of input, output and errors
};
