// SPDX-License-Identifier: MIT
#pragma once

/// Makes failed writes errors that the program can handle.
namespace WriteFailures {

/// From now on a closed pipe or an exceeded quota fails the write instead of ending the program. To
/// be called before the application object is created.
void report();

} // namespace WriteFailures
