#pragma once

namespace suite {

// Settings of the process that every component needs before its application object is made: a
// closed pipe or a full quota is an error to be handled, not the end of the process.
void setupComponent();

} // namespace suite
