// SPDX-License-Identifier: MIT
#pragma once

class QProcess;

/// The consoles of this process and of programs that it starts.
namespace ConsoleWindow {

/// Whether a program can be shown in a console of its own: on Unix, whether there is a display and
/// a terminal emulator.
bool isAvailable();

/// Prepares a process, which must not be started yet, to open in its own console. If no console is
/// available, or the program does not exist, the process is not changed.
void openFor(QProcess& process);

/// Detaches this process from the console that it was started from. Does nothing on Unix, where a
/// user expects an application to keep its terminal.
void detach();

} // namespace ConsoleWindow
