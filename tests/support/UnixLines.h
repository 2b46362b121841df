// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What programs and files have as text, with the line ends of Unix: those of Windows are "\r\n".
inline QByteArray unixLines(QByteArray bytes)
{
#ifdef Q_OS_WIN
    bytes.replace("\r\n", "\n");
#endif
    return bytes;
}
