// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Names of files for libraries that take them as bytes.
namespace NameBytes {

/// On Unix in the encoding of the locale, on Windows in UTF-8, from which such libraries make the
/// wide names of the system.
QByteArray of(const QString& path);

} // namespace NameBytes
