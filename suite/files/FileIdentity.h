// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace suite {

/// Whether two paths lead to the same file: by another spelling, by symbolic or by hard links. If a
/// file does not exist, the paths are compared.
bool isSameFile(const QString& left, const QString& right);

} // namespace suite
