// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// The version of the suite, and of every program in it, such as "1.2.3".
QString version();

} // namespace suite
