// SPDX-License-Identifier: MIT
#pragma once

/// What the fake component asks of the system.
namespace FakeProcess {

/// The signal that asks a component to end.
extern const int stopSignal;

[[noreturn]] void waitForEver();
void sleepFor(int milliseconds);

/// Writes "up" and waits for the signal.
void waitForStop();

/// Starts a child that ignores the signal, writes "child" and waits for ever.
void startStubbornChild();

/// Starts a child by which nothing of this process can be found or ended. It makes the file after a
/// third of a second and ends, or waits for ever if there is no file.
void startDetachedChild(const char* file);

/// Dies by the signal, or on Windows by the exception that corresponds to it.
void die(int signal);

/// If this process is one of those children, plays it and does not return.
void playChild(int argumentCount, char* arguments[]);

} // namespace FakeProcess
