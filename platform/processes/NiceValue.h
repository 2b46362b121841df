// SPDX-License-Identifier: MIT
#pragma once

/// Nice values, the scheduling priority of processes: from -20, the highest, to 19.
namespace NiceValue {

/// Whether this process may give its children the value; lowering it needs a permission.
bool isAllowed(int value);

} // namespace NiceValue
