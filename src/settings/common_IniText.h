// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The one form of settings files that QSettings of Qt 5 and of Qt 6 read alike: characters beyond
/// ASCII as escapes, as Qt 5 writes them. Qt 6 writes them as UTF-8, and takes what it reads for
/// UTF-8; Qt 5 takes it for Latin-1.
namespace common_IniText {

/// What QSettings has written, with its UTF-8 as escapes.
QByteArray escaped(const QByteArray& written);

/// A file's content as QSettings is to read it. Characters that were typed into the file have
/// always been Latin-1, unless there is a byte order mark in front.
QByteArray readable(const QByteArray& content);

} // namespace common_IniText
