// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// What the system or Qt says of a failure, as a part of a sentence: without the period of Windows.
QString clause(const QString& errorText);

} // namespace suite
