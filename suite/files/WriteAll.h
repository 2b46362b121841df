#pragma once

class QByteArray;
class QIODevice;

namespace suite {

/// Writes all bytes into a device that was opened unbuffered. When it returns false the device's
/// error text says why.
bool writeAll(QIODevice& device, const QByteArray& bytes);

} // namespace suite
