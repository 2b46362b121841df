// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// Records without an end, because kestdesk was killed or the power failed.
namespace InterruptedRun {

/// If the run of the record in the folder was interrupted, derives its end from the messages and
/// writes it.
void close(const QString& folder);

} // namespace InterruptedRun
