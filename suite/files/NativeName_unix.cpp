// SPDX-License-Identifier: MIT
#include "NativeName.h"

#include <QFile>

QString suite::NativeName::decoded(const QByteArray& name)
{
    return QFile::decodeName(name);
}

bool suite::NativeName::isOpenable(const QByteArray& name)
{
    return QFile::encodeName(QFile::decodeName(name)) == name;
}

bool suite::NativeName::isOpenable(const QString& name)
{
    return QFile::decodeName(QFile::encodeName(name)) == name;
}
