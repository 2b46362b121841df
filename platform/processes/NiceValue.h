#pragma once

/// The scheduling priority of processes, as "nice" counts it: from -20, the highest, to 19.
namespace NiceValue {

/// Whether this process may give its children the value; a lower one takes a permission.
bool isAllowed(int value);

} // namespace NiceValue
