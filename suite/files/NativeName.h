// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Names of files as the system has them: bytes on Unix, in the encoding of the session, and text
/// on Windows, which is UTF-8 where it is in bytes.
namespace suite::NativeName {

/// The name as Qt opens it.
QString decoded(const QByteArray& name);

/// Whether a file with this name can be opened by decoded().
bool isOpenable(const QByteArray& name);

/// Whether a file with this name can be opened, whatever its characters.
bool isOpenable(const QString& name);

} // namespace suite::NativeName
