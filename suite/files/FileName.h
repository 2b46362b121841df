// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QUrl;

/// Names of files between the system, which takes any bytes, and Qt, which takes characters only.
namespace suite::FileName {

/// Decodes a name from the system. If Qt could not encode it to the same bytes again, no file of
/// this name can be opened: then each invalid byte becomes a special code unit, which problem() and
/// visibleText() recognise.
QString fromNative(const QByteArray& name);

/// Decodes the path of a URL to a local file, in the same way.
QString fromUrl(const QUrl& url);

/// The absolute path without "..". Keeps the special code units.
QString absolute(const QString& path);

/// The files in a folder that no program of Qt can open, by their names, sorted. Qt itself leaves
/// them out of every list.
QStringList unusableIn(const QString& folder);

/// Why no file of this path can be opened, as part of a sentence that ends with the remedy; empty
/// when the path can be used. The file need not exist.
QString problem(const QString& path);

/// Whether a code unit stands for an invalid byte, and the byte.
bool isEscapedByte(uint code);
uint escapedByte(uint code);

} // namespace suite::FileName
