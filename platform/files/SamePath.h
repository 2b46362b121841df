// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Whether paths lead to the same file.
namespace SamePath {

/// Compares absolute paths without links, as the system does. Reads nothing.
bool areEqual(const QString& path, const QString& other);

} // namespace SamePath
