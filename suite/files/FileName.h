#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QUrl;

/// Names of files between the system, which takes any bytes, and Qt, which takes characters only.
namespace suite::FileName {

/// A name as the system gives it. Where Qt could not give the same bytes back to the system, no
/// file of this name can be opened: then the bytes that are no characters are kept as code units of
/// their own, by which problem() and visibleText() know them.
QString fromNative(const QByteArray& name);

/// The local file that an address names, in the same way.
QString fromUrl(const QUrl& url);

/// The path from the root folder, cleaned of "..", whatever its characters are.
QString absolute(const QString& path);

/// The files in a folder that no program of Qt can open, by their names, sorted. Qt itself leaves
/// them out of every list.
QStringList unusableIn(const QString& folder);

/// Why no file of this path can be opened, as part of a sentence that ends with the remedy; empty
/// when the path can be used. The file need not exist.
QString problem(const QString& path);

/// Whether a code unit stands for a byte that is no character, and for which.
bool isEscapedByte(uint code);
uint escapedByte(uint code);

} // namespace suite::FileName
