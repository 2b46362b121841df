// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Repairs settings files that QSettings would read in a time that grows with the square of their
/// size: for each group name without an end it searches to the end of the file.
namespace common_IniRepair {

/// Whether the content has so many such lines that reading takes long. Then it is damaged.
bool isNeeded(const QByteArray& content);

/// The content with the missing ends added. QSettings reads the same groups from it.
QByteArray repaired(const QByteArray& content);

} // namespace common_IniRepair
