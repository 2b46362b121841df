// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QIODevice;

namespace suite {

/// Writes all bytes into a device that was opened unbuffered. On failure returns false; the
/// device's error text gives the reason.
bool writeAll(QIODevice& device, const QByteArray& bytes);

} // namespace suite
