// SPDX-License-Identifier: MIT
#include "WriteAll.h"

#include <QByteArray>
#include <QIODevice>

#include <algorithm>

namespace suite {

// A write that ends early does not say why; the next one does.
bool writeAll(QIODevice& device, const QByteArray& bytes)
{
    const qint64 written = device.write(bytes);
    const QByteArray rest = bytes.mid(static_cast<int>(std::max<qint64>(written, 0)));
    return rest.isEmpty() || (written >= 0 && device.write(rest) == rest.size());
}

} // namespace suite
