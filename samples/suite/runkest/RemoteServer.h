// SPDX-License-Identifier: MIT
#pragma once

/// The other end of remote runs.
namespace RemoteServer {

/// Serves one remote run over the standard channels; returns the exit code. On systems where this
/// is not possible, says so.
int serve();

} // namespace RemoteServer
