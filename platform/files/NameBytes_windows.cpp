// SPDX-License-Identifier: MIT
#include "NameBytes.h"

QByteArray NameBytes::of(const QString& path)
{
    return path.toUtf8();
}
