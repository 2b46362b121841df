// SPDX-License-Identifier: MIT
#include "NativeName.h"

QString suite::NativeName::decoded(const QByteArray& name)
{
    return QString::fromUtf8(name);
}

bool suite::NativeName::isOpenable(const QByteArray& /*name*/)
{
    return true;
}

bool suite::NativeName::isOpenable(const QString& /*name*/)
{
    return true;
}
