// SPDX-License-Identifier: MIT
#include "NameBytes.h"

#include <QFile>

QByteArray NameBytes::of(const QString& path)
{
    return QFile::encodeName(path);
}
