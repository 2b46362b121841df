// SPDX-License-Identifier: MIT
#include "EnvironmentVariable.h"

#include <QByteArray>
#include <QFile>

QString EnvironmentVariable::value(const QString& name)
{
    return qEnvironmentVariable(name.toLocal8Bit().constData());
}

bool EnvironmentVariable::exists(const QString& name)
{
    return qEnvironmentVariableIsSet(name.toLocal8Bit().constData());
}

bool EnvironmentVariable::set(const QString& name, const QString& value)
{
    return qputenv(name.toLocal8Bit().constData(), QFile::encodeName(value));
}

Qt::CaseSensitivity EnvironmentVariable::caseOfNames()
{
    return Qt::CaseSensitive;
}

bool EnvironmentVariable::unknownReferencesStay()
{
    return false;
}
