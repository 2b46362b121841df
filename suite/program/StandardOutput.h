#pragma once

/// What a program has printed on its standard output.
namespace suite::StandardOutput {

/// Writes what is still buffered. False when this or an earlier write has failed, as on a full
/// disk: then something is missing. To be called at the end of a program.
bool flush();

} // namespace suite::StandardOutput
