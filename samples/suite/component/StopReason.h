// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The signals that stop a component, and the corresponding exit codes.
namespace suite::StopReason {

/// The signal's name and meaning: "SIGTERM, a request to end".
QString text(int signal);

/// The exit code after the signal.
int exitCode(int signal);

/// The signal that an exit code stands for; nothing for other codes.
std::optional<int> signalOf(int exitCode);

} // namespace suite::StopReason
