#pragma once

class QString;

/// Runs whose program was killed, with kestdesk or by a power cut, before it wrote their end.
namespace InterruptedRun {

/// Writes the end of the record in the folder, as its messages tell it, if the run was interrupted
/// and has none.
void close(const QString& folder);

} // namespace InterruptedRun
