// SPDX-License-Identifier: MIT
#include "common_Colourise.h"

#include <QColor>
#include <QString>

QString common_colourise(const QString& text, const QColor& colour)
{
    return QStringLiteral("<font color=%1>").arg(colour.name()) + text + QLatin1String("</font>");
}
