#pragma once

#include <QString>

#include <optional>

/// The signals that stop a component, and the exit codes that it ends with then.
namespace suite::StopReason {

/// What the signal is, for the user: "SIGTERM, a request to end".
QString text(int signal);

/// The exit code after the signal.
int exitCode(int signal);

/// The signal that an exit code stands for; nothing for other codes.
std::optional<int> signalOf(int exitCode);

} // namespace suite::StopReason
